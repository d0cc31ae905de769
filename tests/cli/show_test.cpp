// amesp-inp show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using nlohmann::json;

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";

TEST(Show, PrintsEveryRecordWithEveryField) {
    const ProgramRun run =
        run_program({"show", "--schema", "schemas/input/amesp.yaml", "-"},
                    {.input = "# c\n% MEM 5\n! uHF odd\n>xyz 0 1 x\n H 0 0.5 -1d0\nend\n>scf\nconv = 1e-6\n\n",
                     .directory = VELK_SOURCE_DIRECTORY});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({
  "format": "amesp-inp document", "version": 1, "schema": "schemas/input/amesp.yaml",
  "header_comments": ["# c"],
  "directives": [{"name": "maxcore", "value": "5", "known": true, "location": {"line": 2, "column": 1, "length": 7}}],
  "method_tokens": [
    {"text": "uHF", "canonical": "uhf", "category": "method", "known": true,
     "location": {"line": 3, "column": 3, "length": 3}},
    {"text": "odd", "canonical": "odd", "category": "other", "known": false,
     "location": {"line": 3, "column": 7, "length": 3}}],
  "sections": [
    {"name": "xyz", "arguments": ["0", "1", "x"], "parse_mode": "cartesian_coordinates", "known": true,
     "terminated": true, "charge": 0, "multiplicity": 1, "entries": [],
     "atoms": [{"symbol": "H", "x": 0.0, "y": 0.5, "z": -1.0, "raw_line": " H 0 0.5 -1d0",
                "location": {"line": 5, "column": 2, "length": 12}}],
     "raw_lines": [], "location": {"line": 4, "column": 1, "length": 10}},
    {"name": "scf", "arguments": [], "parse_mode": "key_value", "known": true, "terminated": false,
     "charge": null, "multiplicity": null,
     "entries": [{"key": "conv", "value": "1e-6", "known": true, "raw_line": "conv = 1e-6",
                  "location": {"line": 8, "column": 1, "length": 11}}],
     "atoms": [], "raw_lines": [""], "location": {"line": 7, "column": 1, "length": 4}}],
  "preserved_lines": [],
  "warnings": [{"code": "amesp.unterminated_section", "message": "Section '>scf' reached end-of-file without 'end'.",
                "location": {"line": 7, "column": 1, "length": 0}}]
})"));
}

TEST(Show, ReplacesBytesThatAreNoUtf8) {
    const ProgramRun run = run_program({"show", "--schema", starter, "-"}, {.input = "# \xff\n"});
    EXPECT_EQ(json::parse(run.out)["header_comments"][0], "# \xef\xbf\xbd");
}

TEST(Show, GivesAListOfSeveralFilesWithTheirNames) {
    const TempDir dir;
    write_file(dir / "a.inp", "! hf\n");
    write_file(dir / "b.inp", "! mp2\n");
    const auto show = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"show", "--schema", starter});
        return run_program(arguments, {.input = "a.inp\n", .directory = dir.path()});
    };
    const json alone = json::parse(show({"a.inp"}).out);
    EXPECT_TRUE(alone.is_object());
    EXPECT_FALSE(alone.contains("file"));
    const ProgramRun both = show({"b.inp", "none", "a.inp"});
    EXPECT_EQ(both.status, 2);
    EXPECT_EQ(both.err, "amesp-inp: cannot read 'none': No such file or directory\n");
    json list = json::parse(both.out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["file"], "b.inp");
    EXPECT_EQ(list[0]["method_tokens"][0]["text"], "mp2");
    EXPECT_EQ(list[1].size(), alone.size() + 1);
    list[1].erase("file");
    EXPECT_EQ(list[1], alone);
    EXPECT_EQ(json::parse(show({dir.path()}).out).size(), 2U);
    EXPECT_EQ(json::parse(show({dir.path(), "--exclude", "b.inp"}).out).size(), 1U);
    EXPECT_EQ(json::parse(show({"--files-from", "-"}).out).size(), 1U);
    EXPECT_EQ(show({dir.path(), "--exclude", "*", "--allow-empty"}).out, "[]\n");
}

TEST(Show, FailsOnAFileThatCannotBeRead) {
    const ProgramRun run = run_program({"show", "--schema", starter, "/nonexistent"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "amesp-inp: cannot read '/nonexistent': No such file or directory\n");
    EXPECT_EQ(run.out, "");
}

}  // namespace
}  // namespace velk::test
