// The head of an XYZ file in a Cartesian section.
#include <gtest/gtest.h>

#include "diagnostics/described.hpp"

namespace velk::input::amesp {
namespace {

std::string in_section(const std::string& lines, const std::string& header = ">xyz 0 1") {
    return "! hf\n" + header + "\n" + lines + "end\n";
}

TEST(PastedXyz, IsTheCountAndTheTitle) {
    EXPECT_EQ(
        described(in_section("  2\nwater, or so\nH 0 0 0\nH 0 0 1\n")),
        "error amesp-inp.pasted_xyz 3:3+1 '2' '2' is the number of atoms that an XYZ file begins with, and the next "
        "line its title: neither is part of the geometry\n"
        "  see 4:1+12 'water, or so' the title is here\n"
        "  certain make comments of both lines:   2|water, or so| ->   # 2|# water, or so|\n"
        "  cause warning amesp.invalid_xyz_record 3\n"
        "  cause warning amesp.invalid_xyz_record 4\n");
}

TEST(PastedXyz, IsTheCountAloneBeforeABlankTitle) {
    EXPECT_EQ(described(in_section("# pasted\r\n\r\n1\r\n\r\nH 0 0 0\r\n")),
              "error amesp-inp.pasted_xyz 5:1+1 '1' '1' is the number of atoms that an XYZ file begins with: it is not "
              "part of the geometry\n"
              "  certain make a comment of the line: 1\\r| -> # 1\\r|\n"
              "  cause warning amesp.invalid_xyz_record 5\n");
}

// The fix of the only finding, as lines.
std::string fix_in(const std::string& text) {
    const std::string all = described(text);
    const std::size_t fix = all.find("  certain ");
    return fix == std::string::npos || all.find("amesp-inp.pasted_xyz") == std::string::npos
               ? "none"
               : all.substr(all.find(": ", fix) + 2, all.find('\n', fix) - all.find(": ", fix) - 2);
}

TEST(PastedXyz, TakesAnAtomForTheTitleWhenAllAtomsFollowIt) {
    EXPECT_EQ(fix_in(in_section("2\nstep 1 2 3\nH 0 0 0\n\n# c\nH 0 0 1\n")), "2|step 1 2 3| -> # 2|# step 1 2 3|");
    EXPECT_EQ(fix_in(in_section("2\nC 1 2\nH 0 0 0\nH 0 0 1\n")), "2|C 1 2| -> # 2|# C 1 2|");
    EXPECT_EQ(fix_in(in_section("2\nH 0 0 0\nH 0 0 1\n")), "2| -> # 2|");
    EXPECT_EQ(fix_in(in_section("1\nH 0,0 0\nH 0 0 1\nH 0 0 2\n")), "1| -> # 1|");
    EXPECT_EQ(fix_in(in_section("1\nH 0 0 0\n")), "1| -> # 1|");
}

TEST(PastedXyz, LeavesCommentsAndMarkedLinesAfterTheCount) {
    EXPECT_EQ(fix_in(in_section("1\n# title\nH 0 0 0\n")), "1| -> # 1|");
    EXPECT_EQ(fix_in(in_section("1\n! hf\nH 0 0 0\n")), "1| -> # 1|");
}

TEST(PastedXyz, NeedsNoHeader) {
    EXPECT_EQ(fix_in("! hf\n>xyz\n1\nhelium\nHe 0 0 0\nend\n"), "1|helium| -> # 1|# helium|");
}

TEST(PastedXyz, IsNothingElse) {
    for (const char* const lines : {"", "2\n", "2\n\n# c\n", "0\ntitle\nH 0 0 0\n", "-1\ntitle\nH 0 0 0\n",
                                    "0 1\nH 0 0 0\n", "H 0 0 0\n2\ntitle\nH 0 0 1\n", "2.0\ntitle\nH 0 0 0\n"}) {
        EXPECT_EQ(fix_in(in_section(lines)), "none") << lines;
    }
    EXPECT_EQ(fix_in("! hf\n>zmat\n1\ntitle\nH\nend\n"), "none");
}

TEST(PastedXyz, IsNotChargeAboveMultiplicity) {
    EXPECT_EQ(fix_in(in_section("1\n2\nH 0 0 0\n", ">xyz")), "none");
    EXPECT_EQ(fix_in(in_section("1\n2\nH 0 0 0\n")), "1|2| -> # 1|# 2|");
    EXPECT_EQ(fix_in(in_section("1\na 2\nH 0 0 0\n", ">xyz")), "1|a 2| -> # 1|# a 2|");
}

TEST(PastedXyz, IsFoundInEverySection) {
    const std::string text = "! hf\n>xyz 0 1\nH 0 0 0\nend\n>xyz 0 1\n1\nt\nHe 0 0 0\nend\n";
    EXPECT_NE(described(text).find("amesp-inp.pasted_xyz 6:1+1"), std::string::npos);
}

}  // namespace
}  // namespace velk::input::amesp
