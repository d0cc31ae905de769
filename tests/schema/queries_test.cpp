// What a schema answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

InputSchema schema_of(InputSchema::Impl tables) {
    return InputSchema(std::make_shared<const InputSchema::Impl>(std::move(tables)));
}

InputSchema::Impl method_tables() {
    InputSchema::Impl tables;
    tables.method_tokens["b3lyp"] = {"b3lyp", "method"};
    tables.method_tokens["def2-svp"] = {"def2-svp", "basis"};
    tables.method_tokens["hf"] = {"hf", "method"};
    tables.method_token_aliases = {{"b3lyp", "b3lyp"}, {"b3-lyp", "b3lyp"}, {"hf", "hf"}, {"def2-svp", "def2-svp"}};
    tables.method_prefixes = {{"ro", "openshell", "method"}, {"u", "method", "method"}, {"r", "method", "method"}};
    return tables;
}

TEST(EmptySchema, KnowsNothingAndNormalisesNames) {
    for (const InputSchema& schema : {InputSchema(), InputSchema(nullptr), schema_of({})}) {
        EXPECT_TRUE(schema.empty());
        EXPECT_EQ(schema.canonical_directive("  Maxcyc "), "maxcyc");
        EXPECT_EQ(schema.canonical_section(" XYZ"), "xyz");
        EXPECT_EQ(schema.canonical_method_token("B3LYP\t"), "b3lyp");
        EXPECT_EQ(schema.canonical_entry("scf", " Conv "), "conv");
        EXPECT_FALSE(schema.is_known_directive("maxcyc"));
        EXPECT_FALSE(schema.is_known_section("xyz"));
        EXPECT_FALSE(schema.is_known_method_token("hf"));
        EXPECT_FALSE(schema.is_known_entry("scf", "conv"));
        EXPECT_EQ(schema.method_token_category("hf"), "other");
        EXPECT_EQ(schema.section_parse_mode("xyz"), SectionParseMode::raw);
        EXPECT_THAT(schema.known_directives(), IsEmpty());
        EXPECT_THAT(schema.known_sections(), IsEmpty());
        EXPECT_THAT(schema.known_method_tokens(), IsEmpty());
    }
}

TEST(Schema, IsEmptyWithOnlyPrefixesOrAliases) {
    InputSchema::Impl tables;
    tables.method_prefixes = {{"u", "method", "method"}};
    tables.directive_aliases["a"] = "b";
    tables.section_aliases["a"] = "b";
    tables.method_token_aliases["a"] = "b";
    EXPECT_TRUE(schema_of(tables).empty());
    const auto with = [&](auto fill) {
        InputSchema::Impl filled = tables;
        fill(filled);
        return schema_of(filled).empty();
    };
    EXPECT_FALSE(with([](auto& filled) { filled.directives["a"] = {}; }));
    EXPECT_FALSE(with([](auto& filled) { filled.method_tokens["a"] = {}; }));
    EXPECT_FALSE(with([](auto& filled) { filled.sections["a"] = {}; }));
}

TEST(Schema, StaysUsableAfterAMove) {
    InputSchema schema = schema_of(method_tables());
    const InputSchema moved = std::move(schema);
    EXPECT_TRUE(moved.is_known_method_token("hf"));
    EXPECT_TRUE(schema.is_known_method_token("hf"));  // NOLINT(bugprone-use-after-move): that is the point
}

TEST(Schema, SharesItsTablesWithItsCopies) {
    const InputSchema schema = schema_of(method_tables());
    const InputSchema copy = schema;
    EXPECT_EQ(&copy.tables(), &schema.tables());
}

struct TokenCase {
    std::string token;
    std::string canonical;
    std::string category;
    bool known;
};

TEST(MethodTokens, AreMatchedByNameAliasAndPrefix) {
    const InputSchema schema = schema_of(method_tables());
    const TokenCase cases[] = {
        {"b3lyp", "b3lyp", "method", true},
        {" B3LYP\t", "b3lyp", "method", true},
        {"B3-LYP", "b3lyp", "method", true},
        {"UB3LYP", "ub3lyp", "method", true},
        {"ub3-lyp", "ub3lyp", "method", true},
        {"ROhf", "rohf", "openshell", true},
        {"rhf", "rhf", "method", true},
        {"u", "u", "other", false},
        {"ro", "ro", "other", false},
        {"udef2-svp", "udef2-svp", "other", false},
        {"uub3lyp", "uub3lyp", "other", false},
        {"nothing", "nothing", "other", false},
        {"def2-svp", "def2-svp", "basis", true},
        {"", "", "other", false},
        {"u b3lyp", "u b3lyp", "other", false},
        {"\xdc", "\xdc", "other", false},
    };
    for (const TokenCase& c : cases) {
        EXPECT_EQ(schema.canonical_method_token(c.token), c.canonical);
        EXPECT_EQ(schema.method_token_category(c.token), c.category) << c.token;
        EXPECT_EQ(schema.is_known_method_token(c.token), c.known) << c.token;
    }
}

TEST(MethodTokens, FallBackToAShorterPrefixWhoseBaseIsKnown) {
    InputSchema::Impl tables = method_tables();
    tables.method_tokens["ohf"] = {"ohf", "odd"};
    tables.method_prefixes = {{"ro", "openshell", "odd"}, {"r", "restricted", "method"}};
    tables.method_tokens["olyp"] = {"olyp", "method"};
    EXPECT_EQ(schema_of(tables).method_token_category("rolyp"), "restricted");
}

TEST(MethodTokens, AreNeverAPrefixAlone) {
    InputSchema::Impl tables = method_tables();
    tables.method_tokens[""] = {"", "method"};
    EXPECT_FALSE(schema_of(tables).is_known_method_token("u"));
    EXPECT_EQ(schema_of(tables).method_token_category("ro"), "other");
}

TEST(MethodTokens, TakeTheFirstPrefixInStoredOrder) {
    InputSchema::Impl tables = method_tables();
    tables.method_prefixes = {{"", "empty", "method"}, {"u", "first", "method"}, {"u", "second", "method"}};
    tables.method_token_aliases.clear();
    EXPECT_EQ(schema_of(tables).method_token_category("uhf"), "first");
    EXPECT_EQ(schema_of(tables).method_token_category("hf"), "empty");
    EXPECT_EQ(schema_of(tables).canonical_method_token("hf"), "hf");
}

TEST(MethodTokens, DoNotTryPrefixesForAnAliasOfAMissingToken) {
    InputSchema::Impl tables = method_tables();
    tables.method_token_aliases["uhf"] = "gone";
    const InputSchema schema = schema_of(tables);
    EXPECT_EQ(schema.canonical_method_token("UHF"), "gone");
    EXPECT_EQ(schema.method_token_category("uhf"), "other");
    EXPECT_FALSE(schema.is_known_method_token("uhf"));
}

TEST(Names, FollowOneAliasOnly) {
    InputSchema::Impl tables;
    tables.directives["c"] = {};
    tables.directive_aliases = {{"a", "b"}, {"b", "c"}};
    tables.sections["c"] = {};
    tables.section_aliases = {{"a", "b"}, {"b", "c"}};
    const InputSchema schema = schema_of(tables);
    EXPECT_EQ(schema.canonical_directive(" A"), "b");
    EXPECT_FALSE(schema.is_known_directive("a"));
    EXPECT_TRUE(schema.is_known_directive("b"));
    EXPECT_TRUE(schema.is_known_directive("c"));
    EXPECT_EQ(schema.canonical_section("a"), "b");
    EXPECT_FALSE(schema.is_known_section("a"));
    EXPECT_TRUE(schema.is_known_section("B "));
}

TEST(Entries, BelongToTheirSection) {
    InputSchema::Impl tables;
    SectionSpec& scf = tables.sections["scf"];
    scf.name = "scf";
    scf.parse_mode = SectionParseMode::key_value;
    scf.entries["maxcyc"] = {};
    scf.entry_aliases = {{"maxiter", "maxcyc"}};
    tables.sections["opt"] = {};
    tables.section_aliases["control"] = "scf";
    const InputSchema schema = schema_of(tables);
    EXPECT_EQ(schema.canonical_entry(" Control", " MaxIter "), "maxcyc");
    EXPECT_TRUE(schema.is_known_entry("SCF", "maxiter"));
    EXPECT_TRUE(schema.is_known_entry("scf", "MAXCYC"));
    EXPECT_EQ(schema.canonical_entry("nowhere", " MaxIter "), "maxiter");
    EXPECT_FALSE(schema.is_known_entry("nowhere", "maxcyc"));
    EXPECT_FALSE(schema.is_known_entry("opt", "maxcyc"));
    EXPECT_EQ(schema.canonical_entry("opt", "maxiter"), "maxiter");
    EXPECT_EQ(schema.section_parse_mode("control"), SectionParseMode::key_value);
    EXPECT_EQ(schema.section_parse_mode("opt"), SectionParseMode::raw);
}

TEST(KnownNames, AreSortedByUnsignedBytesWithoutAliasesAndPrefixedForms) {
    InputSchema::Impl tables = method_tables();
    for (const char* const name : {"b", "\xff", "ab", "a", "Z"}) {
        tables.directives[name] = {};
        tables.sections[name] = {};
    }
    tables.directive_aliases["alias"] = "a";
    tables.section_aliases["alias"] = "a";
    const InputSchema schema = schema_of(tables);
    EXPECT_THAT(schema.known_directives(), ElementsAre("Z", "a", "ab", "b", "\xff"));
    EXPECT_THAT(schema.known_sections(), ElementsAre("Z", "a", "ab", "b", "\xff"));
    EXPECT_THAT(schema.known_method_tokens(), ElementsAre("b3lyp", "def2-svp", "hf"));
}

}  // namespace
}  // namespace velk::input::amesp
