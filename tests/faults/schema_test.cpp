// Loading a schema with every one of its allocations failing in turn: all of it or the stated error, never a part.
#include <cstring>
#include <optional>
#include <velk/input/amesp/schema_tables.hpp>

#include "faults/allocations.hpp"
#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

using test::fail_each_allocation;
using test::Shortage;

// Every kind of table and of value, in both styles of YAML.
constexpr auto every_kind = R"(
a-rather-long-key: &a-rather-long-anchor !!map {min: -1}
directives:
  aliased: *a-rather-long-anchor
  a-rather-long-directive-name: {value_type: real, min: -1.5e-3, max: 2.25, required: true}
  solver: {value_type: enum, allowed: [one, "a rather long allowed value"], aliases: [a-rather-long-alias]}
  bounded: {min: -.inf, max: not-a-number}
method_tokens:
  b3lyp: {category: method, aliases: b3-lyp}
method_prefixes:
  u: {category: uks}
  ro: {}
sections:
  scf:
    parse_mode: key_value
    required: yes
    allow_multiple: false
    entries:
      a-rather-long-entry-name: {value_type: integer, min: 1, aliases: [x]}
)";

struct BadSchema {
    const char* name;
    const char* yaml;
};

const BadSchema bad_schemas[] = {
    {"syntax", "directives: {a: [b}"},
    {"no boolean", "sections: {s: {required: perhaps, entries: {a: {}}}}"},
    {"scalar root", "a-scalar-that-is-rather-long"},
    {"scalar body", "directives: {maxcyc: a-rather-long-scalar}"},
};

// Whether `load` gives `expected`, or throws what it may: the stated error or std::bad_alloc.
template <class Load>
void expect_all_or_error(const char* name, std::string_view prefix, const std::optional<InputSchema>& expected,
                         Load load) {
    const long count = fail_each_allocation(name, [&](Shortage& shortage) {
        std::optional<InputSchema> loaded;
        bool stated_error = false;
        const bool out_of_memory = shortage.strikes([&] {
            try {
                loaded.emplace(load());
            } catch (const std::runtime_error& error) {
                stated_error = std::string_view(error.what()).starts_with(prefix);
                EXPECT_TRUE(stated_error) << error.what();
            }
        });
        EXPECT_TRUE(loaded || stated_error || out_of_memory) << name;
        if (loaded) {
            ASSERT_TRUE(expected.has_value()) << name;
            EXPECT_EQ(loaded->tables(), expected->tables()) << name;
        } else if (expected) {
            EXPECT_TRUE(shortage.struck()) << name;
        }
    });
    EXPECT_GT(count, 20) << name;
}

constexpr auto yaml_prefix = "failed to parse AMESP input schema YAML: ";
constexpr auto file_prefix = "failed to load AMESP input schema '";

TEST(FailingAllocation, NeverGivesAPartOfASchema) {
    expect_all_or_error("from_yaml", yaml_prefix, InputSchema::from_yaml(every_kind),
                        [] { return InputSchema::from_yaml(every_kind); });
}

TEST(FailingAllocation, NeverGivesAPartOfASchemaInUtf16) {
    std::string text = "\xff\xfe";
    for (const char byte : std::string_view(every_kind)) {
        text += std::string{byte, '\0'};
    }
    expect_all_or_error("UTF-16", yaml_prefix, InputSchema::from_yaml(every_kind),
                        [&] { return InputSchema::from_yaml(text); });
}

TEST(FailingAllocation, LetsTheStatedErrorOutForABadSchema) {
    for (const BadSchema& bad : bad_schemas) {
        expect_all_or_error(bad.name, yaml_prefix, std::nullopt, [&] { return InputSchema::from_yaml(bad.yaml); });
    }
}

TEST(FailingAllocation, NeverGivesAPartOfASchemaFile) {
    const test::TempDir dir;
    test::write_file(dir / "schema.yaml", every_kind);
    expect_all_or_error("from_file", file_prefix, InputSchema::from_yaml(every_kind),
                        [&] { return InputSchema::from_file(dir / "schema.yaml"); });
    for (const BadSchema& bad : bad_schemas) {
        test::write_file(dir / "bad.yaml", bad.yaml);
        expect_all_or_error(bad.name, file_prefix, std::nullopt,
                            [&] { return InputSchema::from_file(dir / "bad.yaml"); });
    }
}

}  // namespace
}  // namespace velk::input::amesp
