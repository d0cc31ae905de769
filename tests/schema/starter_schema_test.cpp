// The schema that installs with the library.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/schema_tables.hpp>
#include <velk/input/amesp/validation.hpp>

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

TEST(StarterSchema, ResolvesEverySectionAlias) {
    for (const auto& [alias, name] : starter().tables().section_aliases) {
        EXPECT_TRUE(starter().is_known_section(alias)) << alias;
        EXPECT_EQ(starter().canonical_section(alias), name) << alias;
    }
    EXPECT_EQ(starter().canonical_section("Z-Matrix"), "zmat");
}

TEST(StarterSchema, TakesEveryPrefixOnEveryMethodAndOnNothingElse) {
    const InputSchema::Impl& tables = starter().tables();
    EXPECT_EQ(tables.method_prefixes.size(), 3U);
    for (const auto& [name, spec] : tables.method_tokens) {
        for (const char* const prefix : {"r", "u", "ro"}) {
            const std::string token = prefix + name;
            if (!tables.method_token_aliases.contains(token)) {
                EXPECT_EQ(starter().is_known_method_token(token), spec.category == "method") << token;
            }
        }
    }
}

void expect_sound(const ValueSpec& spec) {
    EXPECT_THAT(spec.value_type, testing::AnyOf("integer", "real", "boolean", "enum", "string")) << spec.name;
    EXPECT_EQ(spec.value_type == "enum", !spec.allowed.empty()) << spec.name;
    if (spec.min || spec.max) {
        EXPECT_THAT(spec.value_type, testing::AnyOf("integer", "real")) << spec.name;
    }
    if (spec.min && spec.max) {
        EXPECT_LT(*spec.min, *spec.max) << spec.name;
    }
}

TEST(StarterSchema, GivesEveryValueATypeThatIsCheckedAndBoundsThatCanBeMet) {
    const InputSchema::Impl& tables = starter().tables();
    for (const auto& [name, spec] : tables.directives) {
        expect_sound(spec);
    }
    for (const auto& [section, body] : tables.sections) {
        for (const auto& [entry, spec] : body.entries) {
            expect_sound(spec);
        }
    }
}

// The findings of a whole input whose section `>scf` or `>opt` holds one line.
std::vector<ValidationIssue> issues_of(const std::string& section, const std::string& line) {
    const std::string text = "! hf sto-3g\n>" + section + "\n" + line + "\nend\n>xyz 0 1\nHe 0 0 0\nend\n";
    return starter().validate(AIPParser::parse_string(text, starter(), {}).data);
}

TEST(StarterSchema, AcceptsEveryWordOfEveryEnumAndNoOther) {
    int words = 0;
    for (const auto& [section, body] : starter().tables().sections) {
        for (const auto& [entry, spec] : body.entries) {
            for (const std::string& word : spec.allowed) {
                EXPECT_TRUE(issues_of(section, entry + " " + word).empty()) << entry << " " << word;
                const std::vector<ValidationIssue> issues = issues_of(section, entry + " " + word + "x");
                ASSERT_EQ(issues.size(), 1U) << entry;
                EXPECT_EQ(issues[0].code, "amesp.invalid_value");
                ++words;
            }
        }
    }
    EXPECT_GT(words, 0);
}

TEST(StarterSchema, BoundsTheCycles) {
    for (const char* const section : {"scf", "opt"}) {
        EXPECT_TRUE(issues_of(section, "MaxIter = 1").empty());
        const std::vector<ValidationIssue> issues = issues_of(section, "maxcyc 0");
        ASSERT_EQ(issues.size(), 1U);
        EXPECT_EQ(issues[0].code, "amesp.value_below_minimum");
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
