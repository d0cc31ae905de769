// Lines that were meant to be atoms: why they are none, and how they become some.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diagnostics/described.hpp"

namespace velk::input::amesp {
namespace {

struct Case {
    const char* name;
    std::string line;
    std::string place;  // "COLUMN+LENGTH 'WORD'"
    std::string fault;
    std::string fix;  // "certain" or "likely", title and what becomes of the line; empty for none
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class LostAtom : public testing::TestWithParam<Case> {};

TEST_P(LostAtom, IsToldWithItsReason) {
    const Case& c = GetParam();
    const std::string text = "! hf\n>xyz 0 1\nO 0 0 0\n" + c.line + "\nH 0 0 1\nend\n";
    const std::string fix = c.fix.empty() ? "" : "  " + c.fix + "\n";
    EXPECT_EQ(described(text), "error amesp-inp.lost_atom 4:" + c.place + " " + c.fault +
                                   ": this atom is NOT in the geometry (2 of 3 read)\n" + fix +
                                   "  cause warning amesp.invalid_xyz_record 4\n");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LostAtom,
    testing::Values(
        Case{"Minus", "H 0.0 \u22120.7572 0.5", "7+9 '\u22120.7572'",
             "the y coordinate '\u22120.7572' has U+2212, the minus of typesetters, for a sign, write '-0.7572'",
             "certain write the coordinates as 0.0 -0.7572 0.5: H 0.0 \u22120.7572 0.5| -> H 0.0 -0.7572 0.5|"},
        Case{"EnDash", " H \u20130.1 0 1e\u20132 kept", "4+6 '\u20130.1'",
             "the x coordinate '\u20130.1' has U+2013, an en dash, for a sign, write '-0.1'",
             "certain write the coordinates as -0.1 0 1e-2:  H \u20130.1 0 1e\u20132 kept| ->  H -0.1 0 1e-2 kept|"},
        Case{"EmDashFirstOfTwo", "H 0 0 \u20141e\u22122", "7+9 '\u20141e\u22122'",
             "the z coordinate '\u20141e\u22122' has U+2014, an em dash, for a sign, write '-1e-2'",
             "certain write the coordinates as 0 0 -1e-2: H 0 0 \u20141e\u22122| -> H 0 0 -1e-2|"},
        Case{"DecimalCommas", "H 0,0 -0,7572 0,5", "3+3 '0,0'",
             "the x coordinate '0,0' has a decimal comma, write '0.0'",
             "certain write the coordinates as 0.0 -0.7572 0.5: H 0,0 -0,7572 0,5| -> H 0.0 -0.7572 0.5|"},
        Case{"CommaAndMinus", "H 0 \u22120,5 1", "5+6 '\u22120,5'",
             "the y coordinate '\u22120,5' has U+2212, the minus of typesetters, for a sign, write '-0.5'",
             "certain write the coordinates as 0 -0.5 1: H 0 \u22120,5 1| -> H 0 -0.5 1|"},
        Case{"CommasPartTheWords", "H 0.0, 0.5, 0.7", "3+4 '0.0,'",
             "the x coordinate '0.0,' holds a comma: part the columns with blanks, and write decimals with a point",
             ""},
        Case{"CommaBeforeANumber", "H 0.0 ,5 0.7", "7+2 ',5'",
             "the y coordinate ',5' holds a comma: part the columns with blanks, and write decimals with a point", ""},
        Case{"CommaAfterASign", "H 0.0 -,5 0.7", "7+3 '-,5'",
             "the y coordinate '-,5' holds a comma: part the columns with blanks, and write decimals with a point", ""},
        Case{"CommasAlonePartTheWords", "H 0.0,0.5,0.7", "3+11 '0.0,0.5,0.7'",
             "the x coordinate '0.0,0.5,0.7' holds a comma: part the columns with blanks, and write decimals with a "
             "point",
             ""},
        Case{"TwoCommas", "H 0,1,2 0 0", "3+5 '0,1,2'",
             "the x coordinate '0,1,2' holds a comma: part the columns with blanks, and write decimals with a point",
             ""},
        Case{"CommaAndPoint", "H 1,000.5 0 0", "3+7 '1,000.5'",
             "the x coordinate '1,000.5' holds a comma: part the columns with blanks, and write decimals with a point",
             ""},
        Case{"CommaWithAColumnTooFew", "H 0,1 2", "3+3 '0,1'",
             "the x coordinate '0,1' has a decimal comma, write '0.1'", ""},
        Case{"GrownTogether", "H 0.0 0.7572-0.4692", "7+13 '0.7572-0.4692'",
             "the y coordinate '0.7572-0.4692' is several numbers grown together, write '0.7572 -0.4692'",
             "likely write the coordinates as 0.0 0.7572 -0.4692: H 0.0 0.7572-0.4692| -> H 0.0 0.7572 -0.4692|"},
        Case{"AllGrownTogether", "H -1.0-2.0e-3+3.0", "3+15 '-1.0-2.0e-3+3.0'",
             "the x coordinate '-1.0-2.0e-3+3.0' is several numbers grown together, write '-1.0 -2.0e-3 +3.0'",
             "likely write the coordinates as -1.0 -2.0e-3 +3.0: H -1.0-2.0e-3+3.0| -> H -1.0 -2.0e-3 +3.0|"},
        Case{"GrownTogetherWithADash", "H 0.0 0.7572\u22120.4692", "7+15 '0.7572\u22120.4692'",
             "the y coordinate '0.7572\u22120.4692' is several numbers grown together, write '0.7572 -0.4692'",
             "likely write the coordinates as 0.0 0.7572 -0.4692: H 0.0 0.7572\u22120.4692| -> H 0.0 0.7572 -0.4692|"},
        Case{"GrownTogetherToFour", "H 0.0 0.5 0.7-0.4", "11+7 '0.7-0.4'",
             "the z coordinate '0.7-0.4' is several numbers grown together, write '0.7 -0.4'", ""},
        Case{"GrownTogetherWithANumberAfterThem", "H 0.0 0.7-0.4 0.5", "7+7 '0.7-0.4'",
             "the y coordinate '0.7-0.4' is several numbers grown together, write '0.7 -0.4'", ""},
        Case{"GrownTogetherToTwo", "H 0.7-0.4", "3+7 '0.7-0.4'",
             "the x coordinate '0.7-0.4' is several numbers grown together, write '0.7 -0.4'", ""},
        Case{"GrownTogetherWithoutPoints", "H 5-3.0 1", "3+5 '5-3.0'",
             "the x coordinate '5-3.0' is several numbers grown together, write blanks between them", ""},
        Case{"ThreeGrownTogetherOneWithoutPoint", "H 5.0-3-1.0", "3+9 '5.0-3-1.0'",
             "the x coordinate '5.0-3-1.0' is several numbers grown together, write blanks between them", ""},
        Case{"ExponentOfFortran", "H 0.0 1.0-3 0.2", "7+5 '1.0-3'",
             "the y coordinate '1.0-3' may be a number with its exponent, write '1.0e-3', or two numbers grown "
             "together, write a blank between them",
             ""},
        Case{"Asterisks", "H 0.0 **** 0.2", "7+4 '****'",
             "the y coordinate '****' is what Fortran prints for a number too wide for its column, which is lost", ""},
        Case{"LetterL", "H l.5 0 0", "3+3 'l.5'",
             "the x coordinate 'l.5' has the letter 'l' in the place of a digit, write '1.5'",
             "likely write the coordinates as 1.5 0 0: H l.5 0 0| -> H 1.5 0 0|"},
        Case{"LetterO", "H 0 O.O 1o", "5+3 'O.O'",
             "the y coordinate 'O.O' has the letter 'O' in the place of a digit, write '0.0'",
             "likely write the coordinates as 0 0.0 10: H 0 O.O 1o| -> H 0 0.0 10|"},
        Case{"LetterAndComma", "H 0 0,5 l0", "5+3 '0,5'", "the y coordinate '0,5' has a decimal comma, write '0.5'",
             "likely write the coordinates as 0 0.5 10: H 0 0,5 l0| -> H 0 0.5 10|"},
        Case{"LettersAlone", "H 0 0 lO", "7+2 'lO'", "the z coordinate 'lO' is no number", ""},
        Case{"TooGreat", "H 0 0 1e999", "7+5 '1e999'", "the z coordinate '1e999' is out of the range of numbers", ""},
        Case{"TooSmall", "H 0 0 -1.5D-999", "7+9 '-1.5D-999'",
             "the z coordinate '-1.5D-999' is out of the range of numbers", ""},
        Case{"NoExponent", "H 0 0 1e", "7+2 '1e'", "the z coordinate '1e' is no number", ""},
        Case{"ExponentNoNumber", "H 0 0 1e5x", "7+4 '1e5x'", "the z coordinate '1e5x' is no number", ""},
        Case{"ExponentSignAlone", "H 0 0 1e+", "7+3 '1e+'", "the z coordinate '1e+' is no number", ""},
        Case{"ExponentWithoutMantissa", "H 0 0 .e999", "7+5 '.e999'", "the z coordinate '.e999' is no number", ""},
        Case{"NoNumber", "H 0 zero 0,5", "5+4 'zero'", "the y coordinate 'zero' is no number", ""},
        Case{"SignAlone", "H 0 0 -", "7+1 '-'", "the z coordinate '-' is no number", ""},
        Case{"TextWithAComma", "H 0 0 a,b", "7+3 'a,b'", "the z coordinate 'a,b' is no number", ""},
        Case{"OneColumnMissing", "  H 0 0", "3+5 'H 0 0'", "the z coordinate is missing", ""},
        Case{"TwoColumnsMissing", "H1 0.5", "1+6 'H1 0.5'", "the y and z coordinates are missing", ""},
        Case{"SymbolAndNumberGrownTogether", "H-0.2 0.5 0.2", "1+5 'H-0.2'",
             "'H-0.2' is a symbol and a number grown together, write a blank between them", ""},
        Case{"SymbolMissing", "0.1 0.2 0.3", "1+3 '0.1'", "the symbol is missing before '0.1'", ""},
        Case{"AtomicNumber", "8 0,5 0 0", "3+3 '0,5'", "the x coordinate '0,5' has a decimal comma, write '0.5'",
             "certain write the coordinates as 0.5 0 0: 8 0,5 0 0| -> 8 0.5 0 0|"},
        Case{"Heaviest", "118 0,5 0 a", "5+3 '0,5'", "the x coordinate '0,5' has a decimal comma, write '0.5'", ""},
        Case{"LabelThatIsNoSymbol", "OW1 0,5 0 0", "5+3 '0,5'",
             "the x coordinate '0,5' has a decimal comma, write '0.5'",
             "certain write the coordinates as 0.5 0 0: OW1 0,5 0 0| -> OW1 0.5 0 0|"}),
    [](const auto& each) { return each.param.name; });

class NoLostAtom : public testing::TestWithParam<const char*> {};

TEST_P(NoLostAtom, IsWhatDoesNotResembleOne) {
    const std::string line = GetParam();
    EXPECT_EQ(described("! hf\n>xyz 0 1\nO 0 0 0\n" + line + "\nend\n").find("lost_atom"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Lines, NoLostAtom,
                         testing::Values("H", "3", "# H 0,0 0 0", "", "  ", "0 1 0,5", "119 0,5 0", "8 0,5",
                                         "In 2 steps", "As 2 of many", "water x y z", "water 1 2", "water, 1 of 2",
                                         "maxcyc 100", "conv 1e-8 tight", "% maxcore 2000 1 2", "! 0.1 0.2 0,3",
                                         "H x y z", "-0.5", "-- 1 2 0,3", "0.5 a 0.5", "H 0 0 0"));

TEST(LostAtom, ExplainsAnEmptyGeometryAndCountsItsOwnSection) {
    EXPECT_EQ(
        described("! hf\r\n>xyz 0 1\r\nHe 0,5 0 0\r\nend\r\n>scf\r\nend\r\n>xyz 0 1\r\nNe 0 0 0\r\nNe 0\r\n"
                  "Ne 1,5 0 0\r\nend\r\n",
                  InputSchema::from_yaml("{method_tokens: {hf: {}}, sections: {scf: {}, xyz: {parse_mode: xyz}}}")),
        "error amesp-inp.lost_atom 3:4+3 '0,5' the x coordinate '0,5' has a decimal comma, write '0.5': this atom "
        "is NOT in the geometry (0 of 1 read)\n"
        "  certain write the coordinates as 0.5 0 0: He 0,5 0 0\\r| -> He 0.5 0 0\\r|\n"
        "  cause error amesp.empty_geometry 2\n"
        "  cause warning amesp.invalid_xyz_record 3\n"
        "error amesp.multiple_geometry_sections 7:1+8 '>xyz 0 1' AMESP input must not contain multiple >xyz/>zmat "
        "coordinate sections.\n"
        "  see 2:1+8 '>xyz 0 1' the first coordinate section is here\n"
        "error amesp-inp.lost_atom 9:1+4 'Ne 0' the y and z coordinates are missing: this atom is NOT in the "
        "geometry (1 of 3 read)\n"
        "  cause warning amesp.invalid_xyz_record 9\n"
        "error amesp-inp.lost_atom 10:4+3 '1,5' the x coordinate '1,5' has a decimal comma, write '1.5': this "
        "atom is NOT in the geometry (1 of 3 read)\n"
        "  certain write the coordinates as 1.5 0 0: Ne 1,5 0 0\\r| -> Ne 1.5 0 0\\r|\n"
        "  cause warning amesp.invalid_xyz_record 10\n");
}

TEST(LostAtom, StaysOutOfSectionsThatAreNotCartesian) {
    EXPECT_EQ(described("! hf\n>zmat\nO\nH 1 0,96\nH 1 0.96 2\nend\n>scf\n conv 1,5\nend\n").find("lost_atom"),
              std::string::npos);
}

}  // namespace
}  // namespace velk::input::amesp
