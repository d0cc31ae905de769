// The schema that installs with the library.
#include <gtest/gtest.h>

#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {
namespace {

const InputSchema& starter() {
    static const InputSchema schema = InputSchema::from_file(VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml");
    return schema;
}

TEST(StarterSchema, SpellsEveryCanonicalNameAsItself) {
    const InputSchema::Impl& tables = starter().tables();
    for (const auto& [name, spec] : tables.method_tokens) {
        EXPECT_EQ(starter().canonical_method_token(name), name);
        EXPECT_NE(spec.category, "other") << name;
    }
    for (const auto& [name, spec] : tables.directives) {
        EXPECT_EQ(starter().canonical_directive(name), name);
    }
    for (const auto& [section, spec] : tables.sections) {
        EXPECT_EQ(starter().canonical_section(section), section);
        for (const auto& [entry, value] : spec.entries) {
            EXPECT_EQ(starter().canonical_entry(section, entry), entry);
        }
    }
}

TEST(StarterSchema, ResolvesEveryAliasToAKnownName) {
    const InputSchema::Impl& tables = starter().tables();
    for (const auto& [alias, name] : tables.method_token_aliases) {
        EXPECT_TRUE(starter().is_known_method_token(alias)) << alias;
    }
    for (const auto& [alias, name] : tables.directive_aliases) {
        EXPECT_TRUE(starter().is_known_directive(alias)) << alias;
    }
    for (const auto& [section, spec] : tables.sections) {
        for (const auto& [alias, name] : spec.entry_aliases) {
            EXPECT_TRUE(starter().is_known_entry(section, alias)) << alias;
        }
    }
}

TEST(StarterSchema, KnowsWhatAnyInputNames) {
    for (const char* const token :
         {"hf",       "RHF",  "uhf",    "rohf",     "mp2",           "ump2",   "ccsd(t)", "b3lyp",
          "UB3LYP",   "pbe0", "6-31g*", "6-31G(d)", "6-311++G(d,p)", "sto-3g", "cc-pVTZ", "aug-cc-pvdz",
          "def2-SVP", "d3bj", "d4",     "sp",       "opt",           "freq",   "casscf",  "wb97x-d"}) {
        EXPECT_TRUE(starter().is_known_method_token(token)) << token;
    }
    for (const char* const token : {"udef2-svp", "uopt", "r", "b3lpy"}) {
        EXPECT_FALSE(starter().is_known_method_token(token)) << token;
    }
    EXPECT_EQ(starter().canonical_directive("memory"), "maxcore");
    EXPECT_EQ(starter().section_parse_mode("xyz"), SectionParseMode::cartesian_coordinates);
    EXPECT_EQ(starter().section_parse_mode("zmat"), SectionParseMode::raw);
    EXPECT_EQ(starter().section_parse_mode("scf"), SectionParseMode::key_value);
}

TEST(StarterSchema, FindsNothingWrongWithTheGoodExample) {
    const ParseResult result = AIPParser::parse_file(VELK_SOURCE_DIRECTORY "/examples/water.inp", starter(),
                                                     {.preserve_unknown = true, .validate = true});
    EXPECT_TRUE(result.ok) << result.error;
    EXPECT_TRUE(result.data.warnings.empty());
}

}  // namespace
}  // namespace velk::input::amesp
