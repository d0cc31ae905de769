// The rules in their order, with every code, severity, message and place.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <velk/input/amesp/schema_tables.hpp>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using test::parse;
using test::sample_schema;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto error = IssueSeverity::Error;
constexpr auto warning = IssueSeverity::Warning;

std::vector<ValidationIssue> issues_of(const std::string& text, const InputSchema& schema = sample_schema()) {
    return schema.validate(parse(text, schema));
}

const std::string good_geometry = ">xyz 0 1\nH 0 0 0\nend\n";

// What a line or section adds to an otherwise good input, whose first line is line 1.
std::vector<ValidationIssue> issues_with(const std::string& text) {
    return issues_of(text + "\n! hf\n" + good_geometry);
}

TEST(Validate, FindsNothingInAGoodDocument) {
    EXPECT_THAT(issues_of("% maxcyc 5\n! uhf sto-3g\n>xyz 0 1\nH 0 0 0\nend\n>scf\nconv 1d-6\nend"), IsEmpty());
}

TEST(Validate, FindsWhatAnEmptyDocumentLacksInTheOrderOfTheSchema) {
    const InputSchema schema =
        InputSchema::from_yaml("sections: {z: {required: true}, a: , b: {required: true}, y: {allow_multiple: false}}");
    EXPECT_THAT(
        schema.validate({}),
        ElementsAre(
            ValidationIssue{error,
                            "amesp.missing_method_line",
                            "AMESP input requires a non-empty method line beginning with '!'.",
                            {}},
            ValidationIssue{
                error, "amesp.missing_geometry", "AMESP input requires one >xyz or >zmat coordinate section.", {}},
            ValidationIssue{error, "amesp.missing_required_section", "AMESP input requires section '>z'.", {}},
            ValidationIssue{error, "amesp.missing_required_section", "AMESP input requires section '>b'.", {}}));
}

TEST(Validate, ReportsUnknownDirectivesByTheirStoredName) {
    EXPECT_THAT(
        issues_with("% Strange 1"),
        ElementsAre(ValidationIssue{warning, "amesp.unknown_directive",
                                    "Unknown AMESP directive '% strange' was preserved.", SourceLocation{1, 1, 11}}));
    AIPData data = parse("! hf\n" + good_geometry);
    data.directives = {{" MaxIt ", "x", false, {}}, {" Strange ", "", true, {}}};
    EXPECT_THAT(
        sample_schema().validate(data),
        ElementsAre(
            ValidationIssue{error, "amesp.invalid_value", "directive '% maxcyc' expects integer, got 'x'.", {}},
            ValidationIssue{
                warning, "amesp.unknown_directive", "Unknown AMESP directive '%  Strange ' was preserved.", {}}));
}

TEST(Validate, ReportsUnknownTokensByCanonicalNameOrElseByText) {
    EXPECT_THAT(issues_of("! hf Strange\n" + good_geometry),
                ElementsAre(ValidationIssue{warning, "amesp.unknown_method_token",
                                            "Unknown AMESP method-line token 'strange' was preserved.",
                                            SourceLocation{1, 6, 7}}));
    AIPData data = parse(good_geometry);
    data.method_tokens = {{"Odd", "", "", true, {}}, {"odd", "HF", "", false, {}}, {"HF", "", "", false, {}}};
    EXPECT_THAT(
        sample_schema().validate(data),
        ElementsAre(ValidationIssue{
            warning, "amesp.unknown_method_token", "Unknown AMESP method-line token 'Odd' was preserved.", {}}));
}

TEST(Validate, ReportsNothingElseOfAnUnknownSection) {
    EXPECT_THAT(
        issues_of("! hf\n" + good_geometry + ">Strange\nx\n"),
        ElementsAre(ValidationIssue{warning, "amesp.unknown_section", "Unknown AMESP section '>strange' was preserved.",
                                    SourceLocation{5, 1, 8}}));
}

TEST(Validate, ReportsAMissingEndAndThenTheRest) {
    EXPECT_THAT(
        issues_of("! hf\n>geometry 0 0\n"),
        ElementsAre(ValidationIssue{error, "amesp.unterminated_section",
                                    "AMESP section '>xyz' is missing its terminating 'end'.", SourceLocation{2, 1, 13}},
                    ValidationIssue{error, "amesp.invalid_multiplicity", "The >xyz spin multiplicity must be >= 1.",
                                    SourceLocation{2, 1, 13}},
                    ValidationIssue{error, "amesp.empty_geometry", "The >xyz section must contain at least one atom.",
                                    SourceLocation{2, 1, 13}}));
}

struct HeaderCase {
    const char* header;
    std::vector<std::string> codes;
};

TEST(Validate, ChecksTheHeaderAndTheAtomsOfAnXyzSection) {
    const HeaderCase cases[] = {{">xyz 0 1", {}},
                                {">xyz -5 3", {}},
                                {">xyz 0 0", {"amesp.invalid_multiplicity"}},
                                {">xyz 0 -1", {"amesp.invalid_multiplicity"}},
                                {">xyz 0", {"amesp.invalid_xyz_header"}},
                                {">xyz a 1", {"amesp.invalid_xyz_header"}},
                                {">xyz 0 b", {"amesp.invalid_xyz_header"}},
                                {">xyz", {"amesp.invalid_xyz_header"}},
                                {">zmat", {}}};
    for (const HeaderCase& c : cases) {
        for (const bool with_atoms : {true, false}) {
            std::vector<std::string> expected = c.codes;
            if (!with_atoms && std::string_view(c.header) != ">zmat") {
                expected.emplace_back("amesp.empty_geometry");
            }
            std::vector<std::string> codes;
            for (const ValidationIssue& issue :
                 issues_of("! hf\n" + std::string(c.header) + (with_atoms ? "\nH 0 0 0" : "") + "\nend")) {
                codes.push_back(issue.code);
                EXPECT_EQ(issue.severity, error);
            }
            EXPECT_EQ(codes, expected) << c.header;
        }
    }
    EXPECT_EQ(issues_of("! hf\n>xyz 0\nH 0 0 0\nend").at(0).message,
              "The >xyz header requires charge and spin multiplicity.");
}

TEST(Validate, ChecksEntriesUnderTheirCanonicalNames) {
    EXPECT_THAT(
        issues_with(">scf\nMaxIter x\nOdd 1\nconv 2\nend"),
        ElementsAre(ValidationIssue{error, "amesp.invalid_value", "entry 'maxcyc' in >scf expects integer, got 'x'.",
                                    SourceLocation{2, 1, 9}},
                    ValidationIssue{warning, "amesp.unknown_entry", "Unknown entry 'odd' in >scf was preserved.",
                                    SourceLocation{3, 1, 5}},
                    ValidationIssue{error, "amesp.value_above_maximum", "entry 'conv' in >scf must be <= 1.000000.",
                                    SourceLocation{4, 1, 6}}));
}

TEST(Validate, ReportsRequiredEntriesForEverySectionThatLacksThem) {
    const InputSchema schema = InputSchema::from_yaml(
        "sections: {s: {parse_mode: key_value, entries: {b: {required: true, aliases: [bee]}, a: {required: true}, c: "
        "}}}");
    EXPECT_THAT(issues_of("! x\n>zmat\nend\n>s\nbee\nend\n>s\nend\n>s\na 1\nb=\nend", schema),
                ElementsAre(testing::_, testing::_,
                            ValidationIssue{error, "amesp.missing_required_entry", "Section '>s' requires entry 'a'.",
                                            SourceLocation{4, 1, 2}},
                            ValidationIssue{error, "amesp.missing_required_entry", "Section '>s' requires entry 'b'.",
                                            SourceLocation{7, 1, 2}},
                            ValidationIssue{error, "amesp.missing_required_entry", "Section '>s' requires entry 'a'.",
                                            SourceLocation{7, 1, 2}}));
}

// Tables made by hand may keep an entry under another name than its own, and two of one name.
TEST(Validate, LooksForRequiredEntriesByTheirOwnNames) {
    SectionSpec section;
    section.name = "s";
    section.parse_mode = SectionParseMode::key_value;
    for (const char* const key : {"key", "other key"}) {
        ValueSpec& entry = section.entries[key];
        entry.name = "name";
        entry.required = true;
    }
    ValueSpec& last = section.entries["last"];
    last.name = "last";
    last.required = true;
    InputSchema::Impl tables;
    tables.sections["s"] = section;
    const InputSchema schema(std::make_shared<const InputSchema::Impl>(tables));
    const auto missing = [&](const std::string& body) {
        std::vector<std::string> messages;
        for (const ValidationIssue& issue : issues_of(">s\n" + body + "end\n", schema)) {
            if (issue.code == "amesp.missing_required_entry") {
                messages.push_back(issue.message);
            }
        }
        return messages;
    };
    const std::string name = "Section '>s' requires entry 'name'.";
    const std::string last_name = "Section '>s' requires entry 'last'.";
    EXPECT_THAT(missing("key 1\n"), ElementsAre(name, name, last_name));
    EXPECT_THAT(missing("name 1\n"), ElementsAre(last_name));
    EXPECT_THAT(missing("last 1\nlast 2\n"), ElementsAre(name, name));
    EXPECT_THAT(missing("last 1\nname 1\n"), ElementsAre());
}

TEST(Validate, CountsEveryGeometrySection) {
    const std::string several = "! hf\n" + good_geometry + ">zmat\nend\n>zmat\nend\n";
    EXPECT_THAT(issues_of(several),
                ElementsAre(ValidationIssue{error,
                                            "amesp.multiple_geometry_sections",
                                            "AMESP input must not contain multiple >xyz/>zmat coordinate sections.",
                                            {}}));
    EXPECT_THAT(issues_of("! hf\n" + good_geometry + good_geometry + good_geometry),
                ElementsAre(ValidationIssue{error,
                                            "amesp.multiple_geometry_sections",
                                            "AMESP input must not contain multiple >xyz/>zmat coordinate sections.",
                                            {}},
                            ValidationIssue{
                                error, "amesp.duplicate_section", "AMESP section '>xyz' may appear only once.", {}}));
}

TEST(Validate, CountsUnknownGeometrySectionsUnderAnEmptySchema) {
    std::vector<std::string> codes;
    for (const ValidationIssue& issue : issues_of("% d 1\n! hf\n>xyz 0 1\n>zmat\nend\n>zmat\n", InputSchema())) {
        codes.push_back(issue.code);
    }
    EXPECT_THAT(codes, ElementsAre("amesp.unknown_directive", "amesp.unknown_method_token", "amesp.unknown_section",
                                   "amesp.unknown_section", "amesp.multiple_geometry_sections"));
}

TEST(Validate, ReportsTheIssuesOfOneSectionSpecificationTogetherInTheirOrder) {
    const InputSchema schema = InputSchema::from_yaml(
        "sections: {q: {allow_multiple: false}, a: {required: true}, zmat: , m: {allow_multiple: false}}");
    std::vector<std::string> messages;
    for (const ValidationIssue& issue : issues_of(">zmat\nend\n>m\nend\n>M\nend\n>q\nend\n>q\nend", schema)) {
        messages.push_back(issue.message);
    }
    EXPECT_THAT(messages, ElementsAre("AMESP input requires a non-empty method line beginning with '!'.",
                                      "AMESP section '>q' may appear only once.", "AMESP input requires section '>a'.",
                                      "AMESP section '>m' may appear only once."));
}

TEST(Validate, FindsNothingAmissWithARequiredSectionThatIsThere) {
    const InputSchema schema = InputSchema::from_yaml(
        "{method_tokens: {x: }, sections: {zmat: {required: true}, s: {required: true, allow_multiple: false}}}");
    EXPECT_THAT(issues_of("! x\n>zmat\nend\n>s\nend", schema), IsEmpty());
}

// A canonical name that is an alias itself: the section's entries are looked up under what the alias stands for.
TEST(Validate, LooksEntriesUpWithoutAliasesWhereTheSectionsNameStandsForAnotherThatIsMissing) {
    InputSchema::Impl tables;
    tables.sections["s"].name = "s";
    tables.sections["s"].parse_mode = SectionParseMode::key_value;
    tables.sections["s"].entries["conv"].name = "conv";
    tables.sections["s"].entry_aliases = {{"conv", "conv"}, {"c", "conv"}};
    tables.section_aliases = {{"x", "s"}, {"s", "missing"}};
    AIPData data;
    data.sections.resize(1);
    data.sections[0].name = "x";
    data.sections[0].entries = {{" CONV ", "", false, "", {}}, {"c", "", false, "", {}}};
    const auto issues = InputSchema(std::make_shared<const InputSchema::Impl>(tables)).validate(data);
    ASSERT_EQ(issues.size(), 3U);
    EXPECT_EQ(issues[1].message, "Unknown entry 'c' in >s was preserved.");
}

TEST(Validate, UsesTheNamesThatHandFilledTablesGive) {
    InputSchema::Impl tables;
    tables.sections["s"] = {"other", SectionParseMode::raw, true, false, {}, {}};
    const InputSchema schema(std::make_shared<const InputSchema::Impl>(tables));
    std::vector<std::string> messages;
    for (const ValidationIssue& issue : issues_of("! x\n>zmat\nend\n>s\nend", schema)) {
        messages.push_back(issue.message);
    }
    EXPECT_THAT(messages,
                ElementsAre("Unknown AMESP method-line token 'x' was preserved.",
                            "Unknown AMESP section '>zmat' was preserved.", "AMESP input requires section '>other'."));
}

TEST(Validate, MayRunOnManyThreadsWithOneSchema) {
    const std::string text = "% odd\n! uhf\n>xyz 0 0\nH 0 0 0\nend\n>scf\nmaxcyc 0\n";
    const ParseResult expected = AIPParser::parse_string(text, sample_schema(), {true, true});
    std::vector<std::jthread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            for (int repeat = 0; repeat < 200; ++repeat) {
                EXPECT_EQ(AIPParser::parse_string(text, sample_schema(), {true, true}), expected);
            }
        });
    }
}

}  // namespace
}  // namespace velk::input::amesp
