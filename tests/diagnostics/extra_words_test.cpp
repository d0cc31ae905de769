// Words that nothing reads.
#include <gtest/gtest.h>

#include "diagnostics/described.hpp"

namespace velk::input::amesp {
namespace {

struct Case {
    const char* name;
    std::string header;
    std::string line;
    std::string found;  // "SEVERITY LINE:COLUMN+LENGTH 'WORDS' message"; empty for nothing
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class ExtraWords : public testing::TestWithParam<Case> {};

TEST_P(ExtraWords, AreSaidWithWhatBecomesOfThem) {
    const Case& c = GetParam();
    const std::size_t blank = c.found.find(' ');
    const std::string expected =
        c.found.empty() ? "" : c.found.substr(0, blank) + " amesp-inp.extra_words" + c.found.substr(blank) + "\n";
    EXPECT_EQ(described("! hf\n" + c.header + "\n" + c.line + "\nHe 0 0 0\nend\n"), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ExtraWords,
    testing::Values(
        Case{"None", ">xyz 0 1 ", " H 0 0 0\t", ""}, Case{"Angstrom", ">xyz 0 1 Angstrom", "", ""},
        Case{"AngstromInBrackets", ">xyz 0 1 (units=ANG)", "", ""}, Case{"Ring", ">xyz 0 1 \u00c5", "", ""},
        Case{"AngstromSign", ">xyz 0 1 \u212b", "", ""},
        Case{"InTheHeader", " > xyz 0 1  water, cold ", "",
             "warning 2:13+11 'water, cold' 'water, cold' after charge and multiplicity is not read"},
        Case{"AfterAngstrom", ">xyz 0 1 angstrom fixed", "",
             "warning 2:10+14 'angstrom fixed' 'angstrom fixed' after charge and multiplicity is not read"},
        Case{"BeforeAngstrom", ">xyz 0 1 fixed angstrom", "",
             "warning 2:10+14 'fixed angstrom' 'fixed angstrom' after charge and multiplicity is not read"},
        Case{"Bohr", ">xyz 0 1 bohr", "",
             "error 2:10+4 'bohr' 'bohr' is not read: the coordinates are taken in angstrom"},
        Case{"AtomicUnits", ">xyz 0 1 AU", "",
             "error 2:10+2 'AU' 'AU' is not read: the coordinates are taken in angstrom"},
        Case{"Nanometres", ">xyz 0 1 x units=nm", "",
             "error 2:12+8 'units=nm' 'units=nm' is not read: the coordinates are taken in angstrom"},
        Case{"Picometres", ">xyz 0 1 pm", "",
             "error 2:10+2 'pm' 'pm' is not read: the coordinates are taken in angstrom"},
        Case{"AfterCoordinates", ">xyz 0 1", " H 0 0 0  frozen # 1 ",
             "note 3:11+10 'frozen # 1' 'frozen # 1' after the coordinates is not read"},
        Case{"NumberAfterCoordinates", ">xyz 0 1", "H 0 0 0 1.5 a",
             "warning 3:9+5 '1.5 a' '1.5 a' after the coordinates is not read: is it a further coordinate?"},
        Case{"NumberBeforeCoordinates", ">xyz 0 1", " H -1 0.0 0.5 0.7",
             "warning 3:4+2 '-1' '-1' between symbol and coordinates is read as x, and '0.7' is not read"},
        Case{"FourIntegers", ">xyz 0 1", "H 1 2 3 4",
             "warning 3:9+1 '4' '4' after the coordinates is not read: is it a further coordinate?"},
        Case{"IntegerAfterCoordinates", ">xyz 0 1", "H 1 2.0 3.0 4",
             "warning 3:13+1 '4' '4' after the coordinates is not read: is it a further coordinate?"},
        Case{"IntegerBeforeTheLast", ">xyz 0 1", "H 1 2.0 3 4.0",
             "warning 3:11+3 '4.0' '4.0' after the coordinates is not read: is it a further coordinate?"},
        Case{"FourReals", ">xyz 0 1", "H 1.0 2.0 3.0 4.0",
             "warning 3:15+3 '4.0' '4.0' after the coordinates is not read: is it a further coordinate?"},
        Case{"Title", ">xyz 0 1", " Step 1 2 3 of 4",
             "error 3:2+15 'Step 1 2 3 of 4' 'Step' is no symbol of an element, but this line is read as an atom: a "
             "title needs a '#' before it"},
        Case{"ShortLabel", ">xyz 0 1", "OXT 1 2 3", ""}, Case{"LongLabel", ">xyz 0 1", "HW1a 1 2 3", ""},
        Case{"LabelWithRemark", ">xyz 0 1", "H(iso=2) 1 2 3", ""}),
    [](const auto& each) { return each.param.name; });

TEST(ExtraWordsOfSections, AreThoseOfHeadersOfEntries) {
    const std::string geometry = "! hf\n>xyz 0 1\nHe 0 0 0\nend\n";
    EXPECT_EQ(
        described(geometry + ">scf fast # now\n maxcyc 5\nend\n"),
        "warning amesp-inp.extra_words 5:6+10 'fast # now' 'fast # now' after the name of the section is not read\n");
    EXPECT_EQ(described(geometry + ">scf tight maxcyc 5\nend\n"),
              "warning amesp-inp.extra_words 5:6+14 'tight maxcyc 5' 'tight maxcyc 5' after the name of the section is "
              "not read\n");
    EXPECT_EQ(described(geometry + "> scf\nend\n>once a b\nend\n"), "");
    EXPECT_EQ(described("! hf\n>zmat 0 1 bohr\nHe\nend\n"), "");
}

TEST(ExtraWordsOfSections, LeaveABadHeaderToTheFindingThatItHas) {
    const std::string found = described("! hf\n>xyz\nHe 0 0 0\nend\n") + described("! hf\n>xyz 0\nHe 0 0 0\nend\n");
    EXPECT_EQ(found.find("extra_words"), std::string::npos);
}

}  // namespace
}  // namespace velk::input::amesp
