// A geometry replaced in place.
#include <algorithm>
#include <cmath>
#include <limits>

#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;
using input::amesp::AtomRecord;

AtomRecord atom(std::string symbol, double x, double y, double z) {
    return {std::move(symbol), x, y, z, "", {}};
}

std::string gone(const std::string& words) {
    return "The words '" + words + "' after an atom of section '>xyz' go with it.";
}

Edit set(std::vector<AtomRecord> atoms, std::int32_t charge = 0, std::int32_t multiplicity = 1) {
    return [=](AIPEditor& editor) { editor.set_xyz_geometry(charge, multiplicity, atoms); };
}

const std::string water =
    "! hf\n"
    ">XYZ  0 1\n"
    "# oxygen\n"
    "  O   0.0  0.0  0.1173   the apex\n"
    "\n"
    "\tH   0    0.7572 -0.4692\n"
    "\tH   0   -0.7572 -4.692d-1\n"
    "END\n"
    ">scf\nend\n";

TEST(Geometry, KeepsTheLinesOfAtomsThatDidNotChange) {
    const AtomRecord o = atom("O", 0, 0, 0.1173);
    const AtomRecord h1 = atom("H", 0, 0.7572, -0.4692);
    const AtomRecord h2 = atom("H", 0, -0.7572, -0.4692);
    const std::string top = "! hf\n>XYZ  0 1\n# oxygen\n";
    const std::string bottom = "END\n>scf\nend\n";
    const std::string o_line = "  O   0.0  0.0  0.1173   the apex\n\n";
    const std::string h1_line = "\tH   0    0.7572 -0.4692\n";
    const std::string h2_line = "\tH   0   -0.7572 -4.692d-1\n";
    expect_edited({
        {"all", water, set({o, h1, h2}), water},
        {"one coordinate", water, set({o, h1, atom("H", 0, -0.75, -0.4692)}),
         top + o_line + h1_line + "\tH   0   -0.7500 -4.692d-1\n" + bottom},
        {"a symbol", water, set({o, atom("D", 0, 0.7572, -0.4692), h2}),
         top + o_line + "\tD   0    0.7572 -0.4692\n" + h2_line + bottom},
        {"one less", water, set({o, h2}), top + o_line + h2_line + bottom},
        {"one more", water, set({o, h1, atom("He", 1, 2, 3), h2}),
         top + o_line + h1_line + "\tHe  1    2.0000  3.0000\n" + h2_line + bottom},
        {"one more in front", water, set({atom("He", 1, 2, 3), o, h1, h2}),
         top + "  He 1    2.0000  3.0000\n" + o_line + h1_line + h2_line + bottom},
        {"the first at the end", water, set({h1, h2, o}),
         top + "\n" + h1_line + h2_line + "  O   0.0  0.0  0.1173   the apex\n" + bottom},
        {"the last in front", water, set({h2, o, h1}), top + h2_line + o_line + h1_line + bottom},
        {"two that change places", water, set({o, h2, h1}), top + o_line + h2_line + h1_line + bottom},
        {"another order, and one that is new", water, set({h2, atom("He", 1, 2, 3), o}),
         top + "\n" + h2_line + "\tHe  1    2.0000  3.0000\n" + "  O   0.0  0.0  0.1173   the apex\n" + bottom},
        {"none left", water, set({}), top + "\n" + bottom, {gone("the apex")}},
    });
}

TEST(Geometry, TakesTheLineOfEveryAtomAlongInAnyOrder) {
    constexpr std::size_t count = 30;
    std::vector<AtomRecord> atoms;
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < count; ++i) {
        atoms.push_back(atom("C", 0.5 * static_cast<double>(i), 0, 0));
        lines.push_back("  C\t" + std::to_string(i / 2) + (i % 2 == 0 ? ".0" : ".5") + " 0 0  label " +
                        std::to_string(i) + "\n");
    }
    const auto text_of = [](const std::vector<std::string>& body) {
        std::string text = ">xyz 0 1\n";
        for (const std::string& line : body) {
            text += line;
        }
        return text + "end\n";
    };
    const std::string before = text_of(lines);
    std::reverse(atoms.begin(), atoms.end());
    std::reverse(lines.begin(), lines.end());
    expect_edited({{"reversed", before, set(atoms), text_of(lines)}});
    std::swap_ranges(atoms.begin(), atoms.begin() + count / 2, atoms.begin() + count / 2);
    std::swap_ranges(lines.begin(), lines.begin() + count / 2, lines.begin() + count / 2);
    expect_edited({{"halves of that swapped", before, set(atoms), text_of(lines)}});
}

std::string xyz(const std::string& body) {
    return ">xyz 0 1\n" + body + "end\n";
}

TEST(Geometry, ChangesAtomsInTheirLinesBetweenThoseThatStay) {
    const std::string text =
        xyz("  C 1 0 0  first\n  O 5 0 0  apex\n  C 2 0 0  second\n  N 6 0 0  base\n  C 3 0 0  third\n");
    const AtomRecord apex = atom("O", 5, 0, 0);
    const AtomRecord base = atom("N", 6, 0, 0);
    const AtomRecord second = atom("C", 2.5, 0, 0);
    const AtomRecord third = atom("C", 3.5, 0, 0);
    const std::string rest =
        "  O 5 0 0  apex\n  C 2.5000000000 0 0  second\n  N 6 0 0  base\n  C 3.5000000000 0 0  third\n";
    expect_edited({
        {"each", text, set({atom("C", 1.5, 0, 0), apex, second, base, third}),
         xyz("  C 1.5000000000 0 0  first\n" + rest)},
        {"with one less in front", text, set({apex, second, base, third}), xyz(rest), {gone("first")}},
    });
}

struct LayoutCase {
    std::string name;
    std::string lines;  // of the atoms H 0 0 0.5 and O 1 -2.25 0.25
    std::size_t axis;   // of the second
    double value;
    std::string changed;  // the second line
};

TEST(Geometry, KeepsDecimalsAndColumnsOfACoordinateThatChanges) {
    const std::vector<LayoutCase> cases = {
        {"as wide", "H  0.00  0.00 0.50\nO  1.00 -2.25 0.25\n", 1, -1.5, "O  1.00 -1.50 0.25\n"},
        {"shorter, the blank before it grows", "H  0.00  0.00 0.50\nO  1.00 -2.25 0.25\n", 1, 1.5,
         "O  1.00  1.50 0.25\n"},
        {"longer, the blanks before it give way", "H  0.00  0.00 0.50\nO  1.00 -2.25 0.25\n", 0, -1.5,
         "O -1.50 -2.25 0.25\n"},
        {"longer than there is room", "H  0.00  0.00 0.50\nO  1.00 -2.25 0.25\n", 1, -12.5, "O  1.00 -12.50 0.25\n"},
        {"longer, what follows has room", "H  0.00  0.00    0.50\nO  1.00 -2.25    0.25  x\n", 1, -12.5,
         "O  1.00 -12.50   0.25  x\n"},
        {"longer than its column is far from the start", "H 0.0 0 0.5\nO 1.0 -2.25 0.25\n", 0, 123456.0,
         "O 123456.0 -2.25 0.25\n"},
        {"more decimals than it had, words after it keep their column",
         "H 0.0  0.0   0.5\nO 1.0 -2.25  0.25          x y \n", 2, 0.125, "O 1.0 -2.25  0.1250000000  x y \n"},
        {"words after one blank have no column", "H 0.00  0.00 0.50\nO 1.00 -2.25 0.250 x\n", 2, 1000.5,
         "O 1.00 -2.25 1000.500 x\n"},
        {"left in their column", "H 0.0      0.0   0.5\nO 1.0      -2.25 0.25\n", 1, 1.5, "O 1.0      1.50  0.25\n"},
        {"at the right in their column", "H 0.0   0.0 0.5\nO 1.0 -2.25 0.25\n", 1, 1.5, "O 1.0  1.50 0.25\n"},
        {"not in a column", "H 0.0 0.00 0.5\nO 1.0    -2.25 0.25\n", 1, 1.5, "O 1.0    1.50 0.25\n"},
        {"after a tab", "H\t0.00\t 0.00\t0.50\nO\t1.00\t-2.25\t0.25\n", 1, 1.5, "O\t1.00\t1.50\t0.25\n"},
        {"decimals of the axis with most where its own are too few", "H 0 0 0.50\nO 1 -2.25 0.25\n", 0, 1.25,
         "O 1.25 -2.25 0.25\n"},
        {"decimals of the axis with most after an exponent", "H 0 0 0.50\nO 1 -2.25 2.5d-1\n", 2, 0.75,
         "O 1 -2.25 0.75\n"},
        {"as many as it takes", "H 0 0 0.50\nO 1 -2.25 0.25\n", 2, 1.0 / 3.0, "O 1 -2.25 0.3333333333333333\n"},
    };
    for (const LayoutCase& c : cases) {
        std::vector<AtomRecord> atoms{atom("H", 0, 0, 0.5), atom("O", 1, -2.25, 0.25)};
        (c.axis == 0 ? atoms[1].x : c.axis == 1 ? atoms[1].y : atoms[1].z) = c.value;
        const std::string first = c.lines.substr(0, c.lines.find('\n') + 1);
        expect_edited({{c.name, xyz(c.lines), set(atoms), xyz(first + c.changed)}});
    }
}

TEST(Geometry, KeepsWordsAfterTheCoordinatesWithAnAtomOfTheSameSymbol) {
    const std::string text = xyz("  H 1 0 0  one\n  O 5 0 0  two\n");
    const AtomRecord h = atom("H", 1, 0, 0);
    const AtomRecord o = atom("O", 5, 0, 0);
    expect_edited({
        {"moved", text, set({atom("H", 2, 0, 0), o}), xyz("  H 2 0 0  one\n  O 5 0 0  two\n")},
        {"of another symbol", text, set({atom("D", 1, 0, 0), o}), xyz("  D 1 0 0\n  O 5 0 0  two\n"), {gone("one")}},
        {"in another order", text, set({o, h}), xyz("  O 5 0 0  two\n  H 1 0 0  one\n")},
        {"one takes its line along, one is lost",
         text,
         set({atom("N", 7, 0, 0), h}),
         xyz("  N 7 0 0\n  H 1 0 0  one\n"),
         {gone("two")}},
        {"all gone", text, set({}), xyz(""), {gone("one"), gone("two")}},
        {"not written, so not gone",
         text,
         set({atom("", 1, 0, 0), o}),
         text,
         {"Atom 1 of section '>xyz' cannot be written so that it reads back as itself; it was not written."}},
    });
    const auto result = edited_in_place(text, set({h}));
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].severity, input::amesp::IssueSeverity::Warning);
    EXPECT_EQ(result.problems[0].code, "amesp.dropped_words");
    EXPECT_EQ(result.problems[0].location->line, 3U);
}

TEST(Geometry, KeepsTheWordsAfterChargeAndMultiplicity) {
    const std::vector<AtomRecord> he{atom("He", 0, 0, 0)};
    const auto lost = [](const std::string& words, const std::string& section = "xyz") {
        return "The words '" + words + "' of the header of section '>" + section + "' go with it.";
    };
    expect_edited({
        {"words", ">XYZ  -1 1  Angstrom  x\nH 0 0 0\nend\n", set(he), ">XYZ  0 1  Angstrom  x\nHe 0 0 0\nend\n"},
        {"one word that is no charge",
         ">xyz bohr\nH 0 0 0\nend\n",
         set(he),
         ">xyz 0 1\nHe 0 0 0\nend\n",
         {lost("bohr")}},
        {"two that are none", ">xyz 0.5 x y\nH 0 0 0\nend\n", set(he), ">xyz 0 1 y\nHe 0 0 0\nend\n", {lost("0.5 x")}},
        {"of internal coordinates",
         ">zmat 0 1 x y\nH\nend\n",
         set(he),
         ">xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n",
         {lost("x y", "zmat")}},
        {"new arguments of a new section",
         ">xyz 0 1 x\nHe 0 0 0\nend\n",
         [](AIPEditor& editor) {
             editor.remove_section("xyz");
             editor.upsert_section("xyz", {"0", "1"}).atoms = {atom("He", 0, 0, 0)};
         },
         ">xyz 0 1\nHe 0 0 0\nend\n",
         {lost("x")}},
        {"a unit, the same atoms", ">xyz 0 1 bohr\nHe 0 0 0\nend\n", set(he), ">xyz 0 1 bohr\nHe 0 0 0\nend\n"},
        {"a unit, other atoms",
         ">xyz 0 1 bohr\nH 0 0 0\nend\n",
         set(he),
         ">xyz 0 1 bohr\nHe 0 0 0\nend\n",
         {"The header of section '>xyz' keeps the word 'bohr', which names another unit than angstrom; the new "
          "coordinates are read in it."}},
    });
}

TEST(Geometry, DropsTheWordsOfTheHeaderWhenAsked) {
    const std::string text = ">xyz -1 1 bohr x\nH 0 0 0\nend\n";
    AIPEditor editor(input::amesp::AIPParser::parse_string(text, in_place_schema(), {true, false}).data,
                     in_place_schema());
    editor.set_xyz_geometry(0, 1, {atom("He", 0, 0, 0)});
    const auto result = editor.render_over(text, {.preserve_unknown = true, .drop_header_words = true});
    EXPECT_EQ(result.text, ">xyz 0 1\nHe 0 0 0\nend\n");
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].code, "amesp.dropped_words");
    EXPECT_EQ(result.problems[0].severity, input::amesp::IssueSeverity::Warning);
    EXPECT_EQ(result.problems[0].location->line, 1U);
}

TEST(Geometry, KnowsWordsThatNameAnotherUnitThanAngstrom) {
    const auto kept_unit = [](const std::string& word) {
        const auto result = edited_in_place(">xyz 0 1 " + word + "\nH 0 0 0\nend\n", set({atom("He", 0, 0, 0)}));
        EXPECT_LE(result.problems.size(), 1U);
        return !result.problems.empty() && result.problems[0].code == "amesp.kept_unit" &&
               result.problems[0].severity == input::amesp::IssueSeverity::Warning &&
               result.problems[0].location->line == 1;
    };
    for (const char* const word : {"bohr", "BOHR", "au", "a.u.", "A.U", "nm", "Pm", "unit=bohr", "units:au", "(Bohr)",
                                   "[nm],", "\"pm\"", "=a0;"}) {
        EXPECT_TRUE(kept_unit(word)) << word;
    }
    for (const char* const word :
         {"angstrom", "Ang", "\xc3\x85", "bohrium", "boh", "nosym", "5", "=", "()", "bohr=angs"}) {
        EXPECT_FALSE(kept_unit(word)) << word;
    }
}

TEST(Geometry, LaysANewAtomOutAsTheOthers) {
    const auto added = [](const std::string& name, const std::string& lines, std::vector<AtomRecord> atoms,
                          const std::string& line) {
        atoms.push_back(atom("He", -1, 2.5, 12));
        expect_edited({{name, xyz(lines), set(atoms), xyz(lines + line)}});
    };
    const std::vector<AtomRecord> two{atom("H", 0, 0, 0.5), atom("O", 1, -2.25, 0.25)};
    added("points in columns", " H    0.00    0.00    0.50\n O    1.00   -2.25    0.25\n", two,
          " He  -1.00    2.50   12.00\n");
    added("numbers in columns at the right", "H   0.00   0.0   0.50\nO   1.00 -2.25   0.25\n", two,
          "He -1.00  2.50  12.00\n");
    added("numbers in columns at the left", "H 0.00  0.0   0.50\nO 1.00  -2.25 0.25\n", two, "He -1.00 2.50 12.00\n");
    added("no columns", "H 0.0 0.0 0.5\nO  1.00    -2.25   0.25\n", two, "He -1.00 2.50 12.00\n");
    added("exponents alone", "H 0d0 0d0 5d-1\nO 1d0 -2.25d0 2.5d-1\n", two,
          "He -1.0000000000 2.5000000000 12.0000000000\n");
    added("exponents do not count", "H 0.000 0d0 5d-1\nO 1.000 -2.25d0 2.5d-1\n", two, "He -1.000 2.500 12.000\n");
    const std::string digits(21, '0');
    added("nor do more decimals than a number has", "H 0.0 0." + digits + " 0.5\nO 1.0 -2.25 0.25\n", two,
          "He -1.0 2.50 12.00\n");
    const std::string wide(260, ' ');
    added("lines that are too wide do not count", wide + "H    0.000    0.000    0.500\n" + wide + "O 1 -2.25 0.25\n",
          two, "  He -1.0000000000 2.5000000000 12.0000000000\n");
}

TEST(Geometry, LeavesEveryLineToItsAtomAmongEqualOnes) {
    const std::string one = "  H 1 0 0  one\n";
    const std::string two = "  H 1 0 0  two\n";
    const std::string o = "  O 5 0 0  apex\n";
    const std::string n = "  N 6 0 0  base\n";
    const AtomRecord h_atom = atom("H", 1, 0, 0);
    const AtomRecord o_atom = atom("O", 5, 0, 0);
    const AtomRecord n_atom = atom("N", 6, 0, 0);
    expect_edited({
        {"the first stays", xyz(one + two + o), set({h_atom, o_atom, h_atom}), xyz(one + o + two)},
        {"both move", xyz(one + two + o + n), set({o_atom, n_atom, h_atom, h_atom}), xyz(o + n + one + two)},
        {"another becomes equal to one that stays",
         xyz(o + n),
         set({o_atom, o_atom}),
         xyz(o + "  O 5 0 0\n"),
         {gone("base")}},
    });
}

TEST(Geometry, StandsWhereTheFirstOldOneStood) {
    const std::vector<AtomRecord> he{atom("He", 0, 0, 0)};
    const std::string line = "  He 0.0000000000 0.0000000000 0.0000000000\n";
    expect_edited({
        {"charge", ">xyz  0   1\nHe 0 0 0\nend\n", set(he, 1, 2), ">xyz  1   2\nHe 0 0 0\nend\n"},
        {"no header words", ">XYZ\nHe 0 0 0\nend\n", set(he, 1, 2), ">XYZ 1 2\nHe 0 0 0\nend\n"},
        {"an alias stays", ">Geometry 0 1\nH 0 0 0\nend\n", set(he), ">Geometry 0 1\nHe 0 0 0\nend\n"},
        {"internal coordinates", "# a\n>zmat 0 1\n# b\nH\nH 1 0.7\n\nend\n# c\n", set(he),
         "# a\n>xyz 0 1\n# b\n" + line + "\nend\n# c\n"},
        {"further ones go", ">zmat\n# b\nH\nend\n>scf\nend\n>xyz 0 1\n# gone\nH 0 0 0\nend\n", set(he),
         ">xyz 0 1\n# b\n" + line + "end\n>scf\nend\n"},
        {"no atoms before", ">xyz 0 1\n# b\nend\n", set(he), ">xyz 0 1\n# b\n" + line + "end\n"},
        {"neither atoms nor an end before", ">xyz 0 1\n# b\n", set(he), ">xyz 0 1\n# b\n" + line + "end\n"},
        {"above the comments after the first line that goes", ">zmat\nH\n# b\nH 1 0.7\nend\n", set(he),
         ">xyz 0 1\n" + line + "# b\nend\n"},
        {"below the header, whatever goes above it", "% title x\n>zmat\nH\nend\n",
         [=](AIPEditor& editor) {
             editor.remove_directive("title");
             editor.set_xyz_geometry(0, 1, he);
         },
         ">xyz 0 1\n" + line + "end\n"},
        {"no end before", "! hf\n>xyz 0 1\nH 0 0 0\n%lost 1\n# kept\n", set(he),
         "! hf\n>xyz 0 1\nHe 0 0 0\n# kept\nend\n"},
        {"invalid lines go", ">xyz 0 1\nHe 0 0 0\nH 0 0\nend\n", set(he), ">xyz 0 1\nHe 0 0 0\nend\n"},
        {"none before", "! hf\n", set(he, -1, 2), "! hf\n\n>xyz -1 2\n" + line + "end\n"},
    });
}

TEST(Geometry, WritesCoordinatesThatReadBackAsTheSameNumber) {
    const double tiny = 1e-11;
    const double third = 1.0 / 3.0;
    const auto result = edited_in_place(">xyz 0 1\nH 0 0 0\nend\n", set({atom("H", tiny, third, -0.0)}));
    EXPECT_EQ(result.text, ">xyz 0 1\nH 1e-11 0.3333333333333333 -0\nend\n");
    const auto data = input::amesp::AIPParser::parse_string(result.text, in_place_schema(), {true, false}).data;
    EXPECT_EQ(data.sections[0].atoms[0].x, tiny);
    EXPECT_EQ(data.sections[0].atoms[0].y, third);
    EXPECT_TRUE(std::signbit(data.sections[0].atoms[0].z));
}

TEST(Geometry, WritesAnAtomAnewInThePlaceOfOneThatTakesItsLineAlong) {
    expect_edited({
        {"",
         ">xyz 0 1\n  P 1 0 0  the p\n  S 2 0 0\n  T 3 0 0\n  B 4 0 0  the b\nend\n",
         set({atom("X", 9, 0, 0), atom("S", 2, 0, 0), atom("T", 3, 0, 0), atom("P", 1, 0, 0)}),
         ">xyz 0 1\n  X 9 0 0\n  S 2 0 0\n  T 3 0 0\n  P 1 0 0  the p\nend\n",
         {gone("the b")}},
    });
}

TEST(Geometry, TakesNewKeptLinesBehindItsAtoms) {
    const std::string text = ">xyz 0 1\nH 0 0 0\nend\n";
    const auto with_lines = [](std::vector<std::string> lines) {
        return [=](AIPEditor& editor) {
            editor.set_xyz_geometry(0, 1, {atom("H", 0, 0, 0)});
            editor.upsert_section("xyz", {}).raw_lines = lines;
        };
    };
    expect_edited({{"", text, with_lines({"# why", ""}), ">xyz 0 1\nH 0 0 0\n  # why\n\nend\n"}});
    const auto result = edited_in_place(text, with_lines({"He 0 0 0"}));  // would be an atom
    EXPECT_EQ(result.text, text);
    ASSERT_EQ(result.problems.size(), 1u);
    EXPECT_EQ(result.problems[0].code, "amesp.not_expressible");
}

TEST(Geometry, KeepsTheLineOfAnAtomWhoseNewCoordinateNoLineHolds) {
    const std::string text = ">xyz 0 1\nH 0 0 0\nend\n";
    const auto result = edited_in_place(text, set({atom("H", std::numeric_limits<double>::denorm_min(), 0, 0)}));
    EXPECT_EQ(result.text, text);
    ASSERT_EQ(result.problems.size(), 1u);
    EXPECT_NE(result.problems[0].message.find("Atom 1 of section '>xyz'"), std::string::npos);
}

TEST(Geometry, SaysWhichAtomsNoLineHolds) {
    const double denormal = std::numeric_limits<double>::denorm_min();
    const std::vector<AtomRecord> bad = {atom("H", 0, 0, 0), atom("C 1", 0, 0, 0),      atom("", 0, 0, 0),
                                         atom("#", 0, 0, 0), atom("C", denormal, 0, 0), atom("//C", 0, 0, 0)};
    for (const std::string& text : {std::string(">xyz 0 1\nH 0 0 0\nend\n"), std::string("\n")}) {
        const auto result = edited_in_place(text, set(bad));
        ASSERT_EQ(result.problems.size(), 5u);
        EXPECT_EQ(result.problems[0].code, "amesp.not_expressible");
        EXPECT_NE(result.problems[0].message.find("Atom 2 of section"), std::string::npos);
        const auto data = input::amesp::AIPParser::parse_string(result.text, in_place_schema(), {true, false}).data;
        ASSERT_EQ(data.sections.size(), 1u);
        EXPECT_EQ(data.sections[0].atoms.size(), 1u);
        EXPECT_TRUE(data.sections[0].raw_lines.empty());
    }
}

}  // namespace
}  // namespace velk::test
