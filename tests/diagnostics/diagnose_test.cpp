// What there is to tell of a text: each fact once, at its place, with what helps.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diagnostics/diagnosed.hpp"

namespace velk::input::amesp {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* good = "% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n";

struct Case {
    const char* name;
    std::string text;
    std::vector<std::string> places;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class Diagnose : public testing::TestWithParam<Case> {};

TEST_P(Diagnose, GivesEveryFactAPlace) {
    const Diagnosis diagnosis = diagnose(GetParam().text, small_schema());
    EXPECT_EQ(places_in(diagnosis), GetParam().places);
    for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
        const TextRange& range = *diagnostic.range;
        const TextPositions text(GetParam().text);
        EXPECT_EQ(range.offset, text.offset_of(range.start));
        EXPECT_EQ(range.end, (Position{range.start.line, range.start.column + range.length}));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Diagnose,
    testing::Values(
        Case{"Nothing", good, {}},
        Case{"Empty", "", {"1:1+0 amesp.missing_method_line", "1:1+0 amesp.missing_geometry"}},
        Case{"CommentsAlone", "# a\n\n  # b\n", {"1:1+3 amesp.missing_method_line", "3:3+3 amesp.missing_geometry"}},
        Case{"MissingMethodLineAtTheFirstContent",
             "# a\n\n >xyz 0 1\n He 0 0 0\nend\n",
             {"3:2+8 amesp.missing_method_line"}},
        Case{"MissingGeometryAtTheLastLine", "! hf\n\n  # end\n", {"3:3+5 amesp.missing_geometry"}},
        Case{"MissingGeometryWithoutLineEnd", "! hf", {"1:1+4 amesp.missing_geometry"}},
        Case{"ByPlace",
             "! hff sto-3g\n% maxcor 5\n>xyz 0 0\nend\n",
             {"1:3+3 amesp.unknown_method_token", "2:1+10 amesp.unknown_directive", "3:1+8 amesp.invalid_multiplicity",
              "3:1+8 amesp.empty_geometry"}},
        Case{"SecondOfTwoGeometries",
             "! hf\n>xyz 0 1\n He 0 0 0\nend\n>zmat\nend\n",
             {"5:1+5 amesp.multiple_geometry_sections"}},
        Case{"SecondOfThreeDuplicates",
             "! hf\n>once\nend\n>xyz 0 1\n He 0 0 0\nend\n>once\nend\n>once\nend\n",
             {"7:1+5 amesp.duplicate_section"}},
        Case{"OpenSectionOnce", "! hf\n>xyz 0 1\n He 0 0 0\n", {"2:1+8 amesp-inp.missing_end"}},
        Case{"OpenUnknownSection",
             "! hf\n>xyz 0 1\n He 0 0 0\nend\n>odd\n",
             {"5:1+4 amesp-inp.missing_end", "5:1+4 amesp.unknown_section"}},
        Case{"LooseLine", std::string(good) + "loose\n", {"6:1+0 amesp.loose_line"}}),
    [](const auto& each) { return each.param.name; });

const Diagnostic& only(const Diagnosis& diagnosis) {
    EXPECT_EQ(diagnosis.diagnostics.size(), 1U);
    return diagnosis.diagnostics.at(0);
}

struct Help {
    const char* name;
    std::string line;
    std::vector<std::string> help;
    std::vector<TextEdit> edits;  // of its only fix, likely
};

void PrintTo(const Help& c, std::ostream* out) {
    *out << c.name;
}

class DiagnoseHelp : public testing::TestWithParam<Help> {};

TEST_P(DiagnoseHelp, SaysWhatWasProbablyMeant) {
    const std::string text = GetParam().line + "\n! hf\n>xyz 0 1\n He 0 0 0\nend\n";
    const Diagnosis diagnosis = diagnose(text, small_schema());
    const Diagnostic& diagnostic = only(diagnosis);
    EXPECT_EQ(diagnostic.help, GetParam().help);
    ASSERT_EQ(diagnostic.fixes.size(), GetParam().edits.empty() ? 0U : 1U);
    if (!diagnostic.fixes.empty()) {
        EXPECT_EQ(diagnostic.fixes[0].edits, GetParam().edits);
        EXPECT_EQ(diagnostic.fixes[0].applicability, Applicability::likely);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Lines, DiagnoseHelp,
    testing::Values(Help{"Boolean", "% gpu maybe", {"allowed values: on, off, true, false, yes, no, 1, 0"}, {}},
                    Help{"Enumeration", "% guess odd", {"allowed values: core, huckel"}, {}},
                    Help{"NothingAllowed", "% none odd", {"the schema allows no value at all"}, {}},
                    Help{"Integer", "% maxcore odd", {}, {}}, Help{"TooSmall", "% maxcore 0", {}, {}},
                    Help{"TooLarge", "% mem 11", {}, {}},
                    Help{"NearDirective", "%  MaxCor  5", {"did you mean 'maxcore'?"}, {{3, 6, "maxcore"}}},
                    Help{"FarDirective", "% nothinglikeit 5", {}, {}},
                    Help{"DirectiveThatIsAToken",
                         "% hf 5",
                         {"'hf' is known as a method-line token: write it on the '!' line"},
                         {}}),
    [](const auto& each) { return each.param.name; });

TEST(DiagnoseNames, AreFixedWhereTheyStand) {
    const Diagnosis token = diagnose("! hf  OTP\n>xyz 0 1\n He 0 0 0\nend\n", small_schema());
    EXPECT_EQ(only(token).subject, (Subject{"token", "", "otp"}));
    EXPECT_EQ(only(token).fixes.at(0).edits, (std::vector<TextEdit>{{6, 3, "opt"}}));
    EXPECT_EQ(only(token).fixes.at(0).title, "change 'OTP' to 'opt'");

    const Diagnosis section = diagnose("! hf\n>xyz 0 1\n He 0 0 0\nend\n  > SFC x\nend\n", small_schema());
    EXPECT_EQ(only(section).subject, (Subject{"section", "", "sfc"}));
    EXPECT_EQ(only(section).fixes.at(0).edits, (std::vector<TextEdit>{{32, 3, "scf"}}));

    const std::string head = "! hf\n>xyz 0 1\n He 0 0 0\nend\n>scf\n";
    const Diagnosis words = diagnose(head + "  maxcycc 5\nend\n", small_schema());
    EXPECT_EQ(only(words).subject, (Subject{"entry", "scf", "maxcycc"}));
    EXPECT_EQ(only(words).fixes.at(0).edits, (std::vector<TextEdit>{{head.size() + 2, 7, "maxcyc"}}));

    const Diagnosis equals = diagnose(head + "  maxcycc= 5\nend\n", small_schema());
    EXPECT_EQ(only(equals).fixes.at(0).edits, (std::vector<TextEdit>{{head.size() + 2, 7, "maxcyc"}}));
}

TEST(DiagnoseNames, OfAnotherCalculationAreNeitherGivenNorProposed) {
    const auto hints = [](const std::string& word) {
        const Diagnosis diagnosis = diagnose("! opt " + word + "\n>xyz 0 1\n He 0 0 0\nend\n", small_schema());
        EXPECT_THAT(only(diagnosis).fixes, IsEmpty()) << word;
        return only(diagnosis).help;
    };
    using List = std::vector<std::string>;
    EXPECT_EQ(hints("b3lpy"), List{"did you mean 'b3lyp'?"});
    EXPECT_EQ(hints("ub3lpy"), List{"did you mean 'ub3lyp'?"});
    EXPECT_EQ(hints("b2lyp"), List{"not in the schema; near: b3lyp, a different functional"});
    EXPECT_EQ(hints("b3ly"), List{"not in the schema; near: b3lyp, a different functional"});
    EXPECT_EQ(hints("b3lypp"), List{"not in the schema; near: b3lyp, a different functional"});
    EXPECT_EQ(hints("sto-6g"), List{"not in the schema; near: sto-3g, a different basis set"});
    EXPECT_EQ(hints("d4bj"), List{"not in the schema; near: d3bj, a different dispersion correction"});
    const SchemaSource both = InputSchema::from_yaml(
        "method_tokens: {opt: {category: task}, op5: {category: method}, aux: {category: auxiliary_basis}}\n"
        "sections: {xyz: {parse_mode: xyz}}\n");
    EXPECT_EQ(only(diagnose("! op\n>xyz 0 1\n He 0 0 0\nend\n", both)).help, List{"did you mean 'opt'?"});
    EXPECT_EQ(only(diagnose("! auxx\n>xyz 0 1\n He 0 0 0\nend\n", both)).help,
              List{"not in the schema; near: aux, a different basis set"});
}

TEST(DiagnoseNames, AreGivenOnlyForASlipOfLettersAndAsTheHintHasThem) {
    const std::string rest = "\n! hf\n>xyz 0 1\n He 0 0 0\nend\n";
    EXPECT_THAT(only(diagnose("% maxcorre 1" + rest, small_schema())).fixes, testing::SizeIs(1));
    EXPECT_THAT(only(diagnose("% maxcored 1" + rest, small_schema())).fixes, IsEmpty());
    EXPECT_THAT(only(diagnose("% maxcor = 1" + rest, small_schema())).fixes, IsEmpty());
    const SchemaSource schema = InputSchema::from_yaml(
        "directives: {zname: {aliases: [aname]}}\nmethod_tokens: {hf: {}}\nsections: {xyz: {parse_mode: xyz}}\n");
    const Diagnosis diagnosis = diagnose("% bname 1" + rest, schema);
    EXPECT_EQ(only(diagnosis).help.at(0), "did you mean 'aname' or 'zname'?");
    EXPECT_EQ(only(diagnosis).fixes.at(0).title, "change 'bname' to 'aname'");
}

TEST(DiagnoseValues, AreMarkedAlone) {
    const std::string rest = "! hf\n>xyz 0 1\n He 0 0 0\nend\n";
    const auto places = [&](const std::string& text) { return places_in(diagnose(text + rest, small_schema())); };
    EXPECT_THAT(places("  % maxcore   0 \n"), ElementsAre("1:15+1 amesp.value_below_minimum"));
    EXPECT_THAT(places("% mem 11\n"), ElementsAre("1:7+2 amesp.value_above_maximum"));
    EXPECT_THAT(places("% maxcore\n"), ElementsAre("1:1+9 amesp.invalid_value"));
    EXPECT_THAT(places(">scf\n\tconv = a b\n maxcyc x\nend\n"),
                ElementsAre("2:9+3 amesp.invalid_value", "3:9+1 amesp.invalid_value"));
}

TEST(DiagnoseNames, AreNotGivenTwice) {
    const std::string geometry = ">xyz 0 1\n He 0 0 0\nend\n";
    for (const std::string& text : {"% maxcore 1\n% maxcor 2\n! hf\n" + geometry, "! hf opt otp\n" + geometry,
                                    "! hf\n" + geometry + ">once\nend\n>onec\nend\n",
                                    "! hf\n" + geometry + ">scf\n maxcycc 1\n maxiter 2\nend\n"}) {
        EXPECT_THAT(only(diagnose(text, small_schema())).fixes, IsEmpty()) << text;
    }
    // A section that may repeat is given its name all the same.
    EXPECT_EQ(only(diagnose("! hf\n" + geometry + ">scf\nend\n>sfc\nend\n", small_schema())).fixes.size(), 1U);
    const Diagnosis twice = diagnose("% maxcor 1\n% maxcor 2\n! hf\n" + geometry, small_schema());
    EXPECT_EQ(twice.diagnostics.at(0).fixes.size(), 1U);
    EXPECT_EQ(twice.diagnostics.at(1).fixes.size(), 0U);
    EXPECT_EQ(twice.diagnostics.at(1).help, twice.diagnostics.at(0).help);
}

TEST(DiagnoseNames, AreNotGivenWhereTheyWouldBeReadAsSomethingElse) {
    const SchemaSource odd = InputSchema::from_yaml(
        "directives: {'two words': {}, '%percent': {}}\nmethod_tokens: {'!': {}}\n"
        "sections: {xyz: {parse_mode: xyz}, scf: {parse_mode: key_value, entries: {end: {}, 'a=b': {}}}}\n");
    const std::string rest = ">xyz 0 1\n He 0 0 0\nend\n";
    EXPECT_THAT(only(diagnose("% twowords\n! !\n" + rest, odd)).fixes, IsEmpty());
    EXPECT_THAT(only(diagnose("% percent\n! !\n" + rest, odd)).fixes, IsEmpty());
    EXPECT_THAT(only(diagnose("! !\n" + rest + ">scf\n ende 1\nend\n", odd)).fixes, IsEmpty());
    EXPECT_THAT(only(diagnose("! !\n" + rest + ">scf\n a-b 1\nend\n", odd)).fixes, IsEmpty());
}

TEST(DiagnoseNames, OfMarksAloneHaveNoKnownPlace) {
    const SchemaSource odd = InputSchema::from_yaml("method_tokens: {'a!': {}}\nsections: {xyz: {parse_mode: xyz}}\n");
    EXPECT_THAT(only(diagnose("!!!\n>xyz 0 1\n He 0 0 0\nend\n", odd)).fixes, IsEmpty());
}

TEST(DiagnoseRelated, NamesTheFirstOfTwo) {
    const Diagnosis geometries = diagnose("! hf\n>xyz 0 1\n He 0 0 0\nend\n>zmat\nend\n", small_schema());
    ASSERT_EQ(only(geometries).related.size(), 1U);
    EXPECT_EQ(only(geometries).related[0].message, "the first coordinate section is here");
    EXPECT_EQ(only(geometries).related[0].range->start, (Position{2, 1}));
    EXPECT_THAT(only(geometries).help, IsEmpty());

    const Diagnosis twice = diagnose("! hf\n>once\nend\n>xyz 0 1\n He 0 0 0\nend\n>once\nend\n", small_schema());
    EXPECT_EQ(only(twice).related.at(0).message, "the first one is here");
}

TEST(DiagnoseSubjects, SayWhatAFindingSpeaksOf) {
    EXPECT_EQ(diagnose("", small_schema()).diagnostics.at(0).subject, (Subject{"document", "", ""}));
    EXPECT_EQ(only(diagnose(std::string(good) + "loose\n", small_schema())).subject, (Subject{"line", "", ""}));
    EXPECT_EQ(only(diagnose("% gpu 7\n! hf\n>xyz 0 1\n He 0 0 0\nend\n", small_schema())).subject,
              (Subject{"directive", "", "gpu"}));
}

TEST(DiagnoseLimit, CountsWhatIsBeyondIt) {
    const std::string text = "! hf a b c\n% x 1\n% y 1\n>xyz 0 1\n He 0 0 0\nend\n";
    EXPECT_EQ(diagnose(text, small_schema()).diagnostics.size(), 5U);
    const Diagnosis two = diagnose(text, small_schema(), {.limit_per_code = 2});
    EXPECT_THAT(places_in(two), ElementsAre("1:6+1 amesp.unknown_method_token", "1:8+1 amesp.unknown_method_token",
                                            "2:1+5 amesp.unknown_directive", "3:1+5 amesp.unknown_directive"));
    EXPECT_EQ(two.omitted, 1U);
    EXPECT_EQ(diagnose(text, small_schema(), {.limit_per_code = 1}).omitted, 3U);
}

TEST(DiagnoseDocument, HasNoPlacesAndKeepsTheOrderOfTheRules) {
    AIPData document;
    document.sections.resize(1);
    document.sections[0].name = "odd";
    const Diagnosis diagnosis = diagnose(document, small_schema());
    EXPECT_THAT(places_in(diagnosis),
                ElementsAre("amesp.missing_method_line", "amesp.unknown_section", "amesp.missing_geometry"));
    EXPECT_EQ(diagnosis.document, document);
    EXPECT_EQ(diagnose(document, small_schema(), {.limit_per_code = 1}).omitted, 0U);
}

TEST(ToDiagnostic, TakesItsPlaceFromTheLocation) {
    const TextPositions text("ab\ncd\n");
    const ValidationIssue issue{IssueSeverity::Error, std::string(codes::not_expressible), "m",
                                SourceLocation{2, 1, 2}};
    const Diagnostic diagnostic = to_diagnostic(issue, text);
    EXPECT_EQ(diagnostic.severity, Severity::error);
    EXPECT_EQ(diagnostic.code, codes::not_expressible);
    EXPECT_EQ(diagnostic.range, (TextRange{3, 2, {2, 1}, {2, 3}}));
    EXPECT_EQ(to_diagnostic({IssueSeverity::Warning, "unheard of", "m", std::nullopt}, text).code, "");
    EXPECT_EQ(to_diagnostic({IssueSeverity::Warning, "unheard of", "m", std::nullopt}, text).severity,
              Severity::warning);
}

TEST(NearNames, NameTheNearestOfAList) {
    EXPECT_EQ(near_names("chek", {"check", "explain"}), "did you mean 'check'?");
    EXPECT_EQ(near_names("nothing", {"check", "explain"}), "");
    EXPECT_EQ(near_names("cat", {"bat", "hat", "rat", "dog"}), "did you mean 'bat', 'hat' or 'rat'?");
    EXPECT_EQ(near_names("cat", {"vat", "rat", "hat", "bat"}), "did you mean 'bat', 'hat' or 'rat'?");
}

// So many that comparing all would take long.
TEST(NearNamesOfMany, AreFound) {
    std::vector<std::string> known;
    for (int i = 0; i < 70000; ++i) {
        known.push_back("name" + std::to_string(100000 + i));
    }
    known.emplace_back("frequency");
    EXPECT_EQ(near_names("frequnecy", known), "did you mean 'frequency'?");
    EXPECT_EQ(near_names("frqency", known), "did you mean 'frequency'?");
    EXPECT_EQ(near_names("nothing", known), "");
}

TEST(NearNamesOfAKind, AreOneWhereTheyStandForOne) {
    const InputSchema schema = InputSchema::from_yaml(R"(
directives: {memory: {aliases: [memor]}}
method_tokens: {b3lyp: {aliases: [b3-lyp]}}
sections: {geometry: {aliases: [geometri], parse_mode: raw}}
)");
    const Diagnosis diagnosis = diagnose("% memori 1\n! b3_lyp\n>geometrx\nend\n", schema);
    std::vector<std::string> helps;
    for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
        helps.insert(helps.end(), diagnostic.help.begin(), diagnostic.help.end());
    }
    EXPECT_EQ(helps, (std::vector<std::string>{"did you mean 'memor' or 'memory'?", "did you mean 'b3-lyp' or 'b3lyp'?",
                                               "did you mean 'geometri' or 'geometry'?"}));
}

}  // namespace
}  // namespace velk::input::amesp
