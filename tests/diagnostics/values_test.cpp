// Values with '=' before them or a remark after them.
#include <gmock/gmock.h>
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

class Values : public testing::TestWithParam<Case> {};

TEST_P(Values, AreToldFromWhatStandsAroundThem) {
    EXPECT_EQ(rendered(GetParam().text, small_schema()), GetParam().findings);
}

const std::string rest = "\n! hf\n>xyz 0 1\n He 0 0 0\nend\n";

Case equals(const char* name, const std::string& line, const std::string& finding, const std::string& fixed,
            const std::string& cause) {
    return {name, line + rest,
            finding + "\n  help write name and value with a blank between them\n" +
                (fixed.empty() ? "" : "  certain write a blank in place of the '='\n" + fixed + rest + "\n") + cause};
}

INSTANTIATE_TEST_SUITE_P(
    Equals, Values,
    testing::Values(
        equals("InTheName", "%maxcore=2000",
               "warning equals_in_directive 1:9+1 A directive takes no '=': 'maxcore=2000' is read as its name.",
               "%maxcore 2000", "  cause unknown_directive 1:1+13\n"),
        equals("AfterTheName", "% MaxCore= 5",
               "warning equals_in_directive 1:10+1 A directive takes no '=': 'MaxCore=' is read as its name.",
               "% MaxCore 5", "  cause unknown_directive 1:1+12\n"),
        equals("InTheValue", "%  maxcore  =\t2000 ",
               "error equals_in_directive 1:13+1 A directive takes no '=': '=\t2000' is read as its value.",
               "%  maxcore 2000 ", "  cause invalid_value 1:13+6\n"),
        equals("BeforeTheValue", "% gpu =on",
               "error equals_in_directive 1:7+1 A directive takes no '=': '=on' is read as its value.", "% gpu on",
               "  cause invalid_value 1:7+3\n"),
        equals("OfAValueThatMayHoldIt", "% title =a",
               "warning equals_in_directive 1:9+1 A directive takes no '=': '=a' is read as its value.", "% title a",
               ""),
        equals("OfAWrongValue", "% maxcore = lots",
               "error equals_in_directive 1:11+1 A directive takes no '=': '= lots' is read as its value.", "",
               "  cause invalid_value 1:11+6\n"),
        equals("OfAWrongValueInTheName", "%maxcore=0",
               "warning equals_in_directive 1:9+1 A directive takes no '=': 'maxcore=0' is read as its name.", "",
               "  cause unknown_directive 1:1+10\n"),
        equals("WithARemark", "% maxcore = 5 # MB",
               "error equals_in_directive 1:11+1 A directive takes no '=': '= 5 # MB' is read as its value.",
               "% maxcore 5 # MB", "  cause invalid_value 1:11+8\n  cause remark_in_value 1:15+4\n"),
        Case{"OfAnUnknownName", "% odd=5\n% = 5" + rest,
             "warning unknown_directive 1:1+7 Unknown AMESP directive '% odd=5' was preserved.\n"
             "warning unknown_directive 2:1+5 Unknown AMESP directive '% =' was preserved.\n"},
        Case{"WithoutAValue", "%maxcore=" + rest,
             "warning unknown_directive 1:1+9 Unknown AMESP directive '% maxcore=' was preserved.\n"
             "  help did you mean 'maxcore'?\n"},
        Case{"Elsewhere", "% title a=b" + rest, ""}),
    [](const auto& each) { return each.param.name; });

TEST(EqualsInADirective, IsNotFixedWhereTheNameIsThereAlready) {
    const auto fixes = [](const std::string& lines) {
        std::vector<std::size_t> counts;
        for (const Diagnostic& each : diagnose(lines + rest, small_schema()).diagnostics) {
            counts.push_back(each.fixes.size());
        }
        return counts;
    };
    EXPECT_THAT(fixes("% maxcore 1\n%maxcore=2"), testing::ElementsAre(0U));
    EXPECT_THAT(fixes("%maxcore=1\n%maxcore=2"), testing::ElementsAre(1U, 0U));
    EXPECT_THAT(fixes("%maxcore=1\n%mem=2"), testing::ElementsAre(1U, 1U));
}

TEST(EqualsInADirective, MayBePartOfAKnownName) {
    const SchemaSource schema = InputSchema::from_yaml(
        "directives: {a=b: {}, a: {}}\nmethod_tokens: {hf: {}}\nsections: {xyz: {parse_mode: xyz}}");
    EXPECT_EQ(rendered("% a=b 1" + rest, schema), "");
}

Case remark(const char* name, const std::string& text, const std::string& finding, const std::string& fixed,
            const std::string& cause) {
    return {name, text,
            finding + ".\n  help write the remark on a line of its own\n" +
                (fixed.empty() ? "" : "  certain make the remark a comment above\n" + fixed + "\n") + cause};
}

const std::string geometry = "! hf\n>xyz 0 1\n He 0 0 0\nend\n";

INSTANTIATE_TEST_SUITE_P(
    Remarks, Values,
    testing::Values(
        remark("ByWhichAValueFails", "  % maxcore 2000  # MB \r\n" + geometry,
               "error remark_in_value 1:19+4 The remark is read as part of the value: '2000  # MB'",
               "  # MB\r\n  % maxcore 2000 \r\n" + geometry, "  cause invalid_value 1:13+10\n"),
        remark("WithoutABlank", "% maxcore 2000;MB\n" + geometry,
               "error remark_in_value 1:15+3 The remark is read as part of the value: '2000;MB'",
               ";MB\n% maxcore 2000\n" + geometry, "  cause invalid_value 1:11+7\n"),
        remark("AfterAnEntry", geometry + ">scf\n conv = 1 // tight\nend\n",
               "error remark_in_value 6:11+8 The remark is read as part of the value: '1 // tight'",
               geometry + ">scf\n // tight\n conv = 1\nend\n", "  cause invalid_value 6:9+10\n"),
        remark("AfterAValueOfAnyKind", "% title my job # 3\n" + geometry,
               "warning remark_in_value 1:16+3 The remark is read as part of the value: 'my job # 3'", "", ""),
        Case{"AfterAWrongValue", "% maxcore lots # MB\n" + geometry,
             "error invalid_value 1:11+9 directive '% maxcore' expects integer, got 'lots # MB'.\n"
             "warning remark_in_value 1:16+4 The remark is read as part of the value: 'lots # MB'.\n"
             "  help write the remark on a line of its own\n"},
        Case{"InPlaceOfAValue", "% maxcore # MB\n" + geometry,
             "error invalid_value 1:11+4 directive '% maxcore' expects integer, got '# MB'.\n"},
        Case{"OfAnUnknownName", "% odd 5 # MB\n" + geometry,
             "warning unknown_directive 1:1+12 Unknown AMESP directive '% odd' was preserved.\n"},
        Case{"WithinWords", "% title http://a#b;c\n" + geometry, ""},
        Case{"OfUnknownSectionsAndEntries", geometry + ">scf\n odd 1 # a\nend\n>odd\n a # b\nend\n",
             "warning unknown_entry 6:2+9 Unknown entry 'odd' in >scf was preserved.\n"
             "warning unknown_section 8:1+4 Unknown AMESP section '>odd' was preserved.\n"},
        remark("InAMethodLine", "! hf  sto-3g # three words hf\n! ; odd" + geometry.substr(4),
               "warning remark_in_value 1:14+16 The words of the remark are read as method-line tokens", "",
               "  cause unknown_method_token 1:14+1\n  cause unknown_method_token 1:16+5\n"
               "  cause unknown_method_token 1:22+5\n  cause repeated_name 1:28+2\n"
               "warning multiple_method_lines 2:1+0 Multiple AMESP method lines were merged in input order.\n"
               "warning remark_in_value 2:3+5 The words of the remark are read as method-line tokens.\n"
               "  help write the remark on a line of its own\n"
               "  cause unknown_method_token 2:3+1\n  cause unknown_method_token 2:5+3\n")),
    [](const auto& each) { return each.param.name; });

TEST(RemarksInMethodLines, AreNoKnownTokens) {
    const SchemaSource schema =
        InputSchema::from_yaml("method_tokens: {hf: {}, '#p': {}}\nsections: {xyz: {parse_mode: xyz}}");
    EXPECT_EQ(rendered("! hf #p\n" + geometry.substr(5), schema), "");
}

}  // namespace
}  // namespace velk::input::amesp
