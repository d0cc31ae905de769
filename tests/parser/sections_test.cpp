// Section headers and bodies.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;
using test::codes;
using test::parse;
using test::parse_known;
using testing::ElementsAre;
using testing::IsEmpty;

Section only_section(const std::string& text) {
    const AIPData data = parse(text);
    EXPECT_EQ(data.sections.size(), 1U) << text;
    return data.sections.empty() ? Section() : data.sections[0];
}

TEST(Sections, ReadACartesianGeometry) {
    const Section section = only_section(">xyz 0 1\nO 0.0 0.0 0.1173\n  H1 0 0.7572 -0.4692  extra\nend\n");
    Section expected;
    expected.name = "xyz";
    expected.arguments = {"0", "1"};
    expected.parse_mode = SectionParseMode::cartesian_coordinates;
    expected.known = true;
    expected.charge = 0;
    expected.multiplicity = 1;
    expected.atoms = {{"O", 0.0, 0.0, 0.1173, "O 0.0 0.0 0.1173", SourceLocation{2, 1, 16}},
                      {"H1", 0.0, 0.7572, -0.4692, "  H1 0 0.7572 -0.4692  extra", SourceLocation{3, 3, 26}}};
    expected.location = SourceLocation{1, 1, 8};
    EXPECT_EQ(section, expected);
}

struct HeaderCase {
    std::string header;
    std::vector<std::string> arguments;
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
};

TEST(Sections, ReadChargeAndMultiplicityFromAnXyzHeader) {
    const HeaderCase cases[] = {
        {">xyz", {}, {}, {}},
        {">xyz 0", {"0"}, {}, {}},
        {">xyz a 1", {"a", "1"}, {}, 1},
        {">xyz 0 b", {"0", "b"}, 0, {}},
        {"> XYZ  -1\t+2 extra", {"-1", "+2", "extra"}, -1, 2},
        {">Geometry 2147483647 -2147483648",
         {"2147483647", "-2147483648"},
         2147483647,
         std::numeric_limits<std::int32_t>::min()},
        {">xyz 2147483648 1.0", {"2147483648", "1.0"}, {}, {}},
        {">zmat 0 1", {"0", "1"}, {}, {}},
        {">scf 0 1", {"0", "1"}, {}, {}},
    };
    for (const HeaderCase& c : cases) {
        const Section section = only_section(c.header + "\nend");
        EXPECT_EQ(section.arguments, c.arguments) << c.header;
        EXPECT_EQ(section.charge, c.charge) << c.header;
        EXPECT_EQ(section.multiplicity, c.multiplicity) << c.header;
    }
}

TEST(Sections, ReadTheHeaderOfAnXyzSectionThatTheSchemaDoesNotKnow) {
    const AIPData data = parse(">XYZ 1 2\nH 0 0 0\nend", InputSchema());
    EXPECT_EQ(data.sections[0].charge, 1);
    EXPECT_EQ(data.sections[0].parse_mode, SectionParseMode::raw);
    EXPECT_THAT(data.sections[0].raw_lines, ElementsAre("H 0 0 0"));
}

TEST(Sections, SayWhereTheirHeaderStands) {
    EXPECT_EQ(only_section("\n  > scf a  \nend").location, (SourceLocation{2, 3, 7}));
}

TEST(Sections, IgnoreAnEmptyHeaderWithAWarningAndConsumeNoBody) {
    const AIPData data = parse("> \n% maxcyc 1\n");
    EXPECT_THAT(data.sections, IsEmpty());
    EXPECT_EQ(data.directives.size(), 1U);
    EXPECT_THAT(data.warnings,
                ElementsAre(ParseWarning{"amesp.empty_section_header", "Ignored an empty '>' section header.",
                                         SourceLocation{1, 1, 0}}));
}

TEST(Sections, AreClosedByAnEndLineInAnyCase) {
    for (const char* const end : {"end", "END", "End", "  eNd\t", "end\r", "\vend\f"}) {
        const AIPData data = parse(">notes\nx\n"s + end + "\n% maxcyc 1");
        EXPECT_TRUE(data.sections[0].terminated) << end;
        EXPECT_THAT(data.sections[0].raw_lines, ElementsAre("x")) << end;
        EXPECT_EQ(data.directives.size(), 1U) << end;
    }
}

TEST(Sections, AreNotClosedByWordsThatOnlyBeginWithEnd) {
    const Section section = only_section(">notes\nend of data\nends\nen\nend.\nenx\nxnd\nexd\n");
    EXPECT_FALSE(section.terminated);
    EXPECT_THAT(section.raw_lines, ElementsAre("end of data", "ends", "en", "end.", "enx", "xnd", "exd"));
}

TEST(Sections, WithoutEndSwallowTheRest) {
    const AIPData data = parse("! hf\n >SCFcontrol\n% maxcyc 100\n! sto-3g\n>xyz 0 1\n");
    ASSERT_EQ(data.sections.size(), 1U);
    EXPECT_FALSE(data.sections[0].terminated);
    EXPECT_EQ(data.sections[0].entries.size(), 3U);
    EXPECT_EQ(data.sections[0].entries[0].key, "%");
    EXPECT_THAT(data.directives, IsEmpty());
    EXPECT_THAT(data.warnings, ElementsAre(ParseWarning{"amesp.unterminated_section",
                                                        "Section '>scf' reached end-of-file without 'end'.",
                                                        SourceLocation{2, 1, 0}}));
}

TEST(Sections, KeepCommentsAlwaysAndBlankLinesWithUnknownContent) {
    const std::string text = ">scf\n # a\n\n  \n// b\n; c\nend";
    EXPECT_THAT(only_section(text).raw_lines, ElementsAre(" # a", "", "  ", "// b", "; c"));
    EXPECT_THAT(parse_known(text).sections[0].raw_lines, ElementsAre(" # a", "// b", "; c"));
}

TEST(Sections, KeepEveryLineOfARawBody) {
    EXPECT_THAT(only_section(">notes\n a=b \n% x\n! y\n> z\nend").raw_lines, ElementsAre(" a=b ", "% x", "! y", "> z"));
}

struct AtomCase {
    std::string line;
    double x, y, z;
};

TEST(Atoms, AreReadWithFortranExponentsAndEverythingTheCLibraryTakes) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const AtomCase& c : {AtomCase{"N 1.0D0 2.0d-1 0", 1.0, 0.2, 0.0},
                              {"N +1 -.5 5.", 1.0, -0.5, 5.0},
                              {"N 0x10 1e2 -0.0", 16.0, 100.0, -0.0},
                              {"N inf -INF 1E+0", infinity, -infinity, 1.0},
                              {"end 1 2 3", 1.0, 2.0, 3.0}}) {
        const Section section = only_section(">xyz 0 1\n" + c.line + "\nend");
        ASSERT_EQ(section.atoms.size(), 1U) << c.line;
        EXPECT_EQ(section.atoms[0].x, c.x);
        EXPECT_EQ(section.atoms[0].y, c.y);
        EXPECT_EQ(section.atoms[0].z, c.z);
        EXPECT_EQ(std::signbit(section.atoms[0].z), std::signbit(c.z));
    }
    EXPECT_TRUE(std::isnan(only_section(">xyz 0 1\nN nan 0 0\nend").atoms[0].x));
}

TEST(Atoms, ThatCannotBeReadAreKeptAsTheyAre) {
    for (const std::string& line : {"N 1.0 2.0"s, "N"s, "N 1 2 x"s, "N 1 y 3"s, "N z 2 3"s, "N 1e999 0 0"s,
                                    "N 1e-400 0 0"s, "N 1,5 0 0"s, "N 1 2 3\0"s, "  N 1 2 "s}) {
        const AIPData data = parse("\n>xyz 0 1\n" + line + "\nend");
        EXPECT_THAT(data.sections[0].atoms, IsEmpty()) << line;
        EXPECT_THAT(data.sections[0].raw_lines, ElementsAre(line));
        EXPECT_THAT(data.warnings,
                    ElementsAre(ParseWarning{"amesp.invalid_xyz_record",
                                             "Could not parse Cartesian coordinate record; the raw line was preserved.",
                                             SourceLocation{3, 1, 0}}));
    }
}

struct EntryCase {
    std::string line;
    SectionEntry expected;
};

TEST(Entries, AreReadWithBlanksOrAnEqualsSign) {
    const EntryCase cases[] = {
        {" conv 1.0d-6 ", {"conv", "1.0d-6", true, " conv 1.0d-6 ", SourceLocation{2, 2, 11}}},
        {"MaxIter=5", {"maxcyc", "5", true, "MaxIter=5", SourceLocation{2, 1, 9}}},
        {"\ta = b = c", {"a", "b = c", false, "\ta = b = c", SourceLocation{2, 2, 9}}},
        {"diis", {"diis", "", true, "diis", SourceLocation{2, 1, 4}}},
        {"diis =", {"diis", "", true, "diis =", SourceLocation{2, 1, 6}}},
        {"note  two   words", {"note", "two   words", true, "note  two   words", SourceLocation{2, 1, 17}}},
        {"note two=three", {"note two", "three", false, "note two=three", SourceLocation{2, 1, 14}}},
        {"note # no comment", {"note", "# no comment", true, "note # no comment", SourceLocation{2, 1, 17}}},
        {"a\tb", {"a", "b", false, "a\tb", SourceLocation{2, 1, 3}}},
        {"a\rb c", {"a", "c", false, "a\rb c", SourceLocation{2, 1, 5}}},
        {"a\vb", {"a", "", false, "a\vb", SourceLocation{2, 1, 3}}},
        {"a\f\tb", {"a", "b", false, "a\f\tb", SourceLocation{2, 1, 4}}},
        {"A\xc4=\0"s, {"a\xc4", "\0"s, false, "A\xc4=\0"s, SourceLocation{2, 1, 4}}},
    };
    for (const EntryCase& c : cases) {
        const Section section = only_section(">scf\n" + c.line + "\nend");
        ASSERT_EQ(section.entries.size(), 1U) << c.line;
        EXPECT_EQ(section.entries[0], c.expected) << c.line;
    }
}

TEST(Entries, WithoutAKeyAreKeptAsTheyAre) {
    for (const char* const line : {"= 5", "=", "  =x"}) {
        const AIPData data = parse(">scf\n"s + line + "\nend");
        EXPECT_THAT(data.sections[0].entries, IsEmpty());
        EXPECT_THAT(data.sections[0].raw_lines, ElementsAre(line));
        EXPECT_THAT(data.warnings,
                    ElementsAre(ParseWarning{"amesp.invalid_section_entry",
                                             "Could not parse section entry; the raw line was preserved.",
                                             SourceLocation{2, 1, 0}}));
    }
}

TEST(Sections, ThatAreUnknownAreDroppedWholeWhenUnknownContentIsNotKept) {
    const AIPData data = parse_known(">other\nx\nend\n>scf\nstrange 1\nconv 1\nend\n>last\n");
    ASSERT_EQ(data.sections.size(), 1U);
    ASSERT_EQ(data.sections[0].entries.size(), 1U);
    EXPECT_EQ(data.sections[0].entries[0].key, "conv");
    EXPECT_THAT(codes(data.warnings), ElementsAre("amesp.unterminated_section@8"));
}

TEST(Sections, MayOccurSeveralTimes) {
    const AIPData data = parse(">scf\nend\n>SCF a\nend\n");
    ASSERT_EQ(data.sections.size(), 2U);
    EXPECT_EQ(data.sections[1].name, "scf");
    EXPECT_THAT(data.sections[1].arguments, ElementsAre("a"));
}

}  // namespace
}  // namespace velk::input::amesp
