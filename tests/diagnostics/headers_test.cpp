// Headers that hold what belongs below them, or charge and multiplicity in another way.
#include <gtest/gtest.h>

#include "diagnostics/diagnosed.hpp"
#include "diagnostics/rendered.hpp"

namespace velk::input::amesp {
namespace {

struct Case {
    const char* name;
    std::string text;
    std::string findings;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

const std::string geometry = "! hf\n>xyz 0 1\n He 0 0 0\nend\n";

class Headers : public testing::TestWithParam<Case> {};

TEST_P(Headers, AreFoundToHoldWhatBelongsElsewhere) {
    EXPECT_EQ(rendered(GetParam().text, small_schema()), GetParam().findings);
}

Case whole(const char* name, const std::string& header, const std::string& fixed, const std::string& rest) {
    const std::string text = "! hf\n" + header + rest;
    return {name, text,
            "error one_line_section 2:6+" + std::to_string(header.size() - 5) +
                " Section '>scf' stands on one line: its entries are lost, and what follows is read as part of it.\n"
                "  help write every entry, and 'end', on a line of its own\n" +
                (fixed.empty() ? "" : "  likely write every entry on a line of its own\n! hf\n" + fixed + rest + "\n")};
}

Case with_causes(Case c, const std::string& causes) {
    c.findings += causes;
    return c;
}

const std::string rest = "\n>xyz 0 1\n He 0 0 0\nend\n";
const std::string of_rest =
    "  cause unknown_entry 3:1+8\n  cause unknown_entry 4:2+8\n  cause missing_geometry 5:1+3\n";

INSTANTIATE_TEST_SUITE_P(
    WholeSections, Headers,
    testing::Values(
        with_causes(whole("OneEntry", ">scf maxcyc 100 end", ">scf\n  maxcyc 100\nend", rest), of_rest),
        with_causes(whole("SeveralEntries", ">scf maxiter=5  conv = 1e-6\tEND", ">scf\n  maxiter=5\n  conv = 1e-6\nend",
                          rest),
                    of_rest),
        with_causes(whole("AValueThatIsAName", ">scf maxcyc conv conv 1 end", ">scf\n  maxcyc conv\n  conv 1\nend",
                          rest),
                    of_rest),
        with_causes(whole("NoEntry", ">scf end", ">scf\nend", rest), of_rest),
        with_causes(whole("UnknownEntry", ">scf odd 100 end", "", rest), of_rest),
        Case{"AtTheEndOfTheText", geometry + ">scf conv 1 end",
             "error one_line_section 5:6+10 Section '>scf' stands on one line: its entries are lost, and what follows "
             "is read as part of it.\n"
             "  help write every entry, and 'end', on a line of its own\n"
             "  likely write every entry on a line of its own\n" +
                 geometry + ">scf\n  conv 1\nend\n  cause unterminated_section 5:1+15\n"}),
    [](const auto& each) { return each.param.name; });

Case entries(const char* name, const std::string& section, const std::string& place, const std::string& fixed) {
    return {name, geometry + section,
            "error one_line_section " + place +
                " Entries in the header of section '>scf' are lost.\n"
                "  help write every entry, and 'end', on a line of its own\n"
                "  likely write every entry on a line of its own\n" +
                geometry + fixed + "\n"};
}

Case right(const char* name, const std::string& text) {
    return {name, text, ""};
}

INSTANTIATE_TEST_SUITE_P(
    Entries, Headers,
    testing::Values(entries("AboveTheEnd", ">scf maxcyc 100\nend\n", "5:6+10", ">scf\n  maxcyc 100\nend\n"),
                    entries("AboveOthers", " > scf  maxcyc 100 \r\n conv 1\r\nend\r\n", "5:9+10",
                            " > scf\r\n   maxcyc 100 \r\n conv 1\r\nend\r\n"),
                    entries("WithAnEndInVain", ">scf conv= 1 end\nend\n", "5:6+11", ">scf\n  conv= 1\nend\n"),
                    right("NoWords", geometry + ">scf\nend\n"),
                    right("OtherSections", geometry + ">once maxcyc 100 end\nend\n")),
    [](const auto& each) { return each.param.name; });

Case charge(const char* name, const std::string& words, const std::string& place, const std::string& wrong,
            const std::string& numbers, const std::string& after = "") {
    const std::string tail = "\n He 0 0 0\nend\n";
    return {name, "! hf\n>xyz " + words + after + tail,
            "error bad_header 2:" + place + " Charge and multiplicity are two integers, which '" + wrong +
                "' is not.\n  help write '>xyz " + numbers +
                "'\n  likely write charge and multiplicity as two integers\n! hf\n>xyz " + numbers + after + tail +
                "\n  cause invalid_xyz_header 2:1+" + std::to_string(5 + words.size() + after.size()) + "\n"};
}

// What the library says of it is all that can be said.
Case unclear(const char* name, const std::string& words) {
    return {name, "! hf\n>xyz" + words + "\n He 0 0 0\nend\n",
            "error invalid_xyz_header 2:1+" + std::to_string(4 + words.size()) +
                " The >xyz header requires charge and spin multiplicity.\n"};
}

INSTANTIATE_TEST_SUITE_P(
    Charges, Headers,
    testing::Values(charge("SignAfter", "1+ 2", "6+2", "1+", "1 2"), charge("MinusAfter", "2- 1", "6+2", "2-", "-2 1"),
                    charge("TypographicMinus", "\u22121 2", "6+4", "\u22121", "-1 2"),
                    charge("EnDash", "\u20131 2", "6+4", "\u20131", "-1 2"),
                    charge("EmDash", "\u20141 2", "6+4", "\u20141", "-1 2"),
                    charge("Singlet", "0 singlet", "8+7", "singlet", "0 1"),
                    charge("Doublet", "+1 Doublet", "9+7", "Doublet", "1 2"),
                    charge("Anion", "anion 2", "6+5", "anion", "-1 2"), charge("Comma", "0,1", "6+3", "0,1", "0 1"),
                    charge("CommaAndBlank", "0, 1", "6+2", "0,", "0 1"),
                    charge("Named", "charge=0 mult=1", "6+8", "charge=0", "0 1"),
                    charge("NamedTheOtherWayRound", "multiplicity = 3 q = -1", "6+12", "multiplicity", "-1 3"),
                    charge("NamedInPart", "0 mult 1", "8+4", "mult", "0 1"),
                    charge("WithMoreWords", "0,1", "6+3", "0,1", "0 1", "  angstrom"), unclear("NoWords", ""),
                    unclear("OneNumber", " 0"), unclear("TwoCharges", " neutral charge=1"),
                    unclear("Multiplicities", " singlet mult=2"), unclear("TwoLabels", " charge mult 1 2"),
                    unclear("OtherWords", " a b"), unclear("SignAfterTheMultiplicity", " 2 1+"),
                    unclear("SignAlone", " - 1"), unclear("Glued", " 0,1,5"), unclear("TooMuch", " 0, 99999999999"),
                    unclear("NoMultiplicity", " 0,0")),
    [](const auto& each) { return each.param.name; });

std::string empty(const std::string& findings) {
    return findings + "error empty_geometry 2:1+4 The >xyz section must contain at least one atom.\n";
}

INSTANTIATE_TEST_SUITE_P(
    Below, Headers,
    testing::Values(
        Case{"TheHeader", "! hf\n>xyz\n\n -1  2\n He 0 0 0\nend\n",
             "error bad_header 4:2+5 Charge and multiplicity belong into the header.\n"
             "  related 2:1+4 the header is here\n  help write '>xyz -1 2'\n"
             "  likely write charge and multiplicity as two integers\n"
             "! hf\n>xyz -1 2\n\n He 0 0 0\nend\n\n"
             "  cause invalid_xyz_header 2:1+4\n  cause invalid_xyz_record 4:1+0\n"},
        Case{"ThreeNumbers", "! hf\n>xyz\n 0 1 2\nend\n",
             empty("error invalid_xyz_header 2:1+4 The >xyz header requires charge and spin multiplicity.\n") +
                 "warning invalid_xyz_record 3:1+0 Could not parse Cartesian coordinate record; the raw line was "
                 "preserved.\n"},
        Case{"NoMultiplicity", "! hf\n>xyz\n 0 0\nend\n",
             empty("error invalid_xyz_header 2:1+4 The >xyz header requires charge and spin multiplicity.\n") +
                 "warning invalid_xyz_record 3:1+0 Could not parse Cartesian coordinate record; the raw line was "
                 "preserved.\n"},
        Case{"Nothing", "! hf\n>xyz\n",
             "error missing_end 2:1+4 Section '>xyz' has no 'end'.\n"
             "  help add a line 'end' after the last line of the section\n"
             "  certain add the missing 'end'\n! hf\n>xyz\nend\n\n  cause unterminated_section 2:1+4\n" +
                 empty("error invalid_xyz_header 2:1+4 The >xyz header requires charge and spin multiplicity.\n")}),
    [](const auto& each) { return each.param.name; });

TEST(Headers, OfAnXyzSectionThatTheSchemaDoesNotKnowAreItsOwnBusiness) {
    const SchemaSource schema = InputSchema::from_yaml("method_tokens: {hf: {}}");
    EXPECT_EQ(rendered("! hf\n>xyz 0,1\nend\n", schema),
              "warning unknown_section 2:1+8 Unknown AMESP section '>xyz' was preserved.\n");
}

}  // namespace
}  // namespace velk::input::amesp
