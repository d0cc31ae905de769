// Validation as the last step of a parse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using test::codes;
using test::sample_schema;
using testing::ElementsAre;
using testing::IsEmpty;

ParseResult validated(std::string_view text, const InputSchema& schema = sample_schema()) {
    return AIPParser::parse_string(text, schema, {true, true});
}

TEST(ValidateOnParse, FailsEmptyTextWithTheFirstError) {
    const InputSchema schema = InputSchema::from_yaml("sections: {b: {required: true}, a: {required: true}}");
    const ParseResult result = validated("", schema);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, "AMESP input requires a non-empty method line beginning with '!'.");
    EXPECT_THAT(codes(result.data.warnings),
                ElementsAre("amesp.missing_method_line@none", "amesp.missing_geometry@none",
                            "amesp.missing_required_section@none", "amesp.missing_required_section@none"));
    EXPECT_EQ(result.data.warnings[2].message, "AMESP input requires section '>b'.");
}

TEST(ValidateOnParse, PassesADocumentWithUnknownNamesOnly) {
    const ParseResult result = validated("% other\n! strange\n>xyz 0 1\nH 0 0 0\nend\n>else\nend\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(codes(result.data.warnings),
                ElementsAre("amesp.unknown_directive@1", "amesp.unknown_method_token@2", "amesp.unknown_section@6"));
}

TEST(ValidateOnParse, PutsTheParsersWarningsFirst) {
    const ParseResult result = validated("% maxcyc 0\n! hf\n>xyz 0 1\nH 0 0 0\nend\n>scf\n");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, "directive '% maxcyc' must be >= 1.000000.");
    EXPECT_THAT(codes(result.data.warnings), ElementsAre("amesp.unterminated_section@6", "amesp.value_below_minimum@1",
                                                         "amesp.unterminated_section@6"));
    EXPECT_EQ(result.data.warnings[1].location, (SourceLocation{1, 1, 10}));
    EXPECT_EQ(result.data.sections.size(), 2U);
}

TEST(ValidateOnParse, TakesTheFirstErrorPastWarnings) {
    const ParseResult result = validated("% other\n! hf\n");
    EXPECT_EQ(result.error, "AMESP input requires one >xyz or >zmat coordinate section.");
}

TEST(ValidateOnParse, ChecksNothingUnlessAsked) {
    const ParseResult result = AIPParser::parse_string("% maxcyc 0", sample_schema(), {true, false});
    EXPECT_TRUE(result.ok);
    EXPECT_THAT(result.data.warnings, IsEmpty());
}

}  // namespace
}  // namespace velk::input::amesp
