// One schema, many threads: each sees what a single thread would see.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>
#include <velk/core/fs.hpp>
#include <velk/input/amesp.hpp>

#include "support/sample_schema.hpp"
#include "support/temp_dir.hpp"
#include "threads/at_once.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

constexpr std::size_t threads = 8;
constexpr int rounds = 100;

const std::string text =
    "# a comment\n% maxcyc 200\n% unknown-directive and its value\n! hf ub3-lyp an-unknown-token\n"
    ">scf argument\n  MaxIter = 1\nconv 2\nunknown value\nend\n>xyz 0 1\nH 0 0 0.5\nH 1D-3 .25 -7\nend\n"
    ">notes\nsome line\nend\nloose line\n>xyz\n";

// What one thread makes of the text: every operation that reads the schema, and edits of a document of its own.
struct Outcome {
    ParseResult parsed;
    std::vector<ValidationIssue> issues;
    std::string rendered;
    std::string edited;
    std::string edited_in_place;

    bool operator==(const Outcome&) const = default;
};

Outcome work_through(const InputSchema& schema, int variant) {
    Outcome outcome;
    outcome.parsed = AIPParser::parse_string(text, schema, {true, true});
    outcome.issues = schema.validate(outcome.parsed.data);
    AIPEditor editor(outcome.parsed.data, schema);
    outcome.rendered = editor.render();
    editor.set_directive("maxit", std::to_string(variant));
    editor.add_method_token("sto-3g");
    editor.remove_method_token("b3lyp");
    editor.set_section_entry("scfcontrol", "diis", "yes");
    editor.remove_section("notes");
    editor.set_xyz_geometry(variant, 1, {{"He", 0, 0, 0, "", {}}});
    outcome.edited = editor.render();
    outcome.edited_in_place = editor.render_over(text).text;
    return outcome;
}

TEST(Threads, WithOneSchemaSeeWhatASingleThreadSees) {
    const InputSchema& schema = sample_schema();
    std::vector<Outcome> expected;
    for (std::size_t i = 0; i < threads; ++i) {
        expected.push_back(work_through(schema, static_cast<int>(i)));
    }
    ASSERT_NE(expected[0].edited, expected[1].edited);
    std::atomic<int> same = 0;
    at_once(threads, [&](std::size_t i) {
        for (int round = 0; round < rounds; ++round) {
            same += work_through(schema, static_cast<int>(i)) == expected[i] ? 1 : 0;
        }
    });
    EXPECT_EQ(same, static_cast<int>(threads) * rounds);
}

// The last handle that goes frees the tables, on whichever thread that is.
TEST(Threads, MayCopyAndDropHandlesOfOneSchema) {
    std::atomic<int> known = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto schema =
            std::make_unique<InputSchema>(InputSchema::from_yaml("directives: {maxcyc: {aliases: [maxit]}}"));
        std::vector<InputSchema> handles(threads, *schema);
        at_once(threads, [&](std::size_t i) {
            const InputSchema copy = handles[i];
            handles[i] = InputSchema();
            known += copy.is_known_directive("maxit") ? 1 : 0;
        });
    }
    EXPECT_EQ(known, static_cast<int>(threads) * rounds);
}

TEST(Threads, MayReadOneEditorThroughItsConstOperations) {
    const AIPEditor editor(AIPParser::parse_string(text, sample_schema(), {true, false}).data, sample_schema());
    const std::string rendered = editor.render();
    const std::size_t issues = editor.validate().size();
    std::atomic<int> same = 0;
    at_once(threads, [&](std::size_t) {
        for (int round = 0; round < rounds; ++round) {
            const bool holds = editor.render() == rendered && editor.validate().size() == issues &&
                               editor.render_over(text).text == text && editor.make_method_token("UHF").known &&
                               editor.make_section("geometry", {}).name == "xyz";
            same += holds ? 1 : 0;
        }
    });
    EXPECT_EQ(same, static_cast<int>(threads) * rounds);
}

TEST(Threads, MayLoadSchemasAndReadAndWriteFilesAtOnce) {
    const TempDir dir;
    const std::string yaml = "directives: {maxcyc: {value_type: integer, min: 1, max: 2.5}}\n";
    write_file(dir / "schema.yaml", yaml);
    write_file(dir / "shared.inp", text);
    const InputSchema expected = InputSchema::from_yaml(yaml);
    std::atomic<int> same = 0;
    at_once(threads, [&](std::size_t i) {
        const std::string own = dir / std::to_string(i);
        for (int round = 0; round < 20; ++round) {
            const InputSchema schema = InputSchema::from_file(dir / "schema.yaml");
            const AIPEditor editor(AIPParser::parse_file(dir / "shared.inp", schema, {}).data, schema);
            editor.write_file(own);
            editor.write_file(dir / "contended");
            const bool holds = schema.is_known_directive("maxcyc") == expected.is_known_directive("maxcyc") &&
                               core::fs::read_text_file(own) == editor.render() &&
                               core::fs::read_text_file(dir / "contended") == editor.render();
            same += holds ? 1 : 0;
        }
    });
    EXPECT_EQ(same, static_cast<int>(threads) * 20);
    EXPECT_EQ(dir.entry_count(), threads + 3);
}

}  // namespace
}  // namespace velk::test
