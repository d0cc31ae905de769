// Findings of the verbs that edit, as JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using Words = std::vector<std::string>;

constexpr auto tidy = "! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";
constexpr auto moves = "! HF sto-3g\n# why\n>xyz 0 1\nHe 0 0 0\nend\n";
constexpr auto open = "! HF sto-3g\n>xyz 0 1\nHe 0 0 0\n";
constexpr auto in_bohr = "! hf sto-3g\n>xyz 0 1 bohr\nHe 0 0 1\nend\n";

class JsonReport : public testing::Test {
protected:
    JsonReport() {
        for (const auto& [name, text] : {std::pair("tidy.inp", tidy), std::pair("moves.inp", moves),
                                         std::pair("open.inp", open), std::pair("bohr.inp", in_bohr)}) {
            write_file(dir_ / name, text);
        }
        write_file(dir_ / "m.xyz", "1\n\nHe 0 0 0\n");
    }

    ProgramRun run(const Words& words) const {
        return run_program(
            words, {.directory = dir_.path(),
                    .environment = {"VELK_AMESP_INP_SCHEMA_YAML=" VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml"},
                    .obeys_permissions = true});
    }

    // "FILE: ERROR: CODE CODE" for each file, and what the report counts.
    static Words summary_of(const ProgramRun& run) {
        const auto report = nlohmann::json::parse(run.out);
        EXPECT_EQ(report["format"], "amesp-inp findings");
        EXPECT_EQ(report["schema"], VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml");
        Words words;
        for (const auto& file : report["files"]) {
            std::string line = file["file"];
            line += file["error"].is_null() ? ":" : ": " + std::string(file["error"]) + ":";
            for (const auto& finding : file["findings"]) {
                line += " " + std::string(finding["code"]);
            }
            words.push_back(line);
        }
        const auto& counts = report["summary"];
        words.push_back(
            nlohmann::json{counts["files"], counts["unreadable"], counts["errors"], counts["warnings"]}.dump());
        return words;
    }

    const TempDir dir_;
};

TEST_F(JsonReport, OfFormattingListsEachFile) {
    const ProgramRun written = run({"fmt", "-i", "--format", "json", "moves.inp", "open.inp", "tidy.inp"});
    EXPECT_EQ(written.status, 1);
    EXPECT_EQ(summary_of(written),
              (Words{"moves.inp: amesp-inp.moved_line", "open.inp: amesp-inp.added_end", "tidy.inp:", "[3,0,1,1]"}));
    EXPECT_EQ(written.err,
              "amesp-inp: 'open.inp' is left as it is: formatting would lose content (--force formats it)\n");
    EXPECT_NE(read_file(dir_ / "moves.inp"), moves);
    EXPECT_EQ(read_file(dir_ / "open.inp"), open);
}

TEST_F(JsonReport, OfACheckOfTheFormatListsWhatWouldChange) {
    const ProgramRun checked =
        run({"fmt", "--check", "--format", "json", "moves.inp", "open.inp", "none.inp", "tidy.inp"});
    EXPECT_EQ(checked.status, 2);
    const std::string reason = "cannot read 'none.inp': No such file or directory";
    EXPECT_EQ(summary_of(checked), (Words{"moves.inp: amesp-inp.moved_line", "open.inp: amesp-inp.added_end",
                                          "none.inp: " + reason + ":", "[4,1,1,1]"}));
    EXPECT_THAT(checked.err, testing::StartsWith("amesp-inp: " + reason + "\n3 files checked: "));
    EXPECT_EQ(summary_of(run({"fmt", "--check", "--format", "json", "tidy.inp"})), (Words{"[1,0,0,0]"}));
}

TEST_F(JsonReport, LeavesWarningsOutWhenQuiet) {
    EXPECT_EQ(summary_of(run({"fmt", "-q", "--check", "--format", "json", "moves.inp", "open.inp"})),
              (Words{"moves.inp:", "open.inp: amesp-inp.added_end", "[2,0,1,0]"}));
}

TEST_F(JsonReport, OfAnEditHoldsWhatIsLostAndWhatIsFound) {
    const ProgramRun set = run({"set", "--format", "json", "bohr.inp", "-o", "out", "--geometry", "m.xyz",
                                "--drop-words", "--directive", "unknown=1"});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.err, "");
    EXPECT_EQ(summary_of(set), (Words{"bohr.inp: amesp.dropped_words amesp.unknown_directive", "[1,0,0,2]"}));
    const ProgramRun geom = run({"geom", "--format", "json", "-i", "bohr.inp", "--from-xyz", "m.xyz"});
    EXPECT_EQ(geom.status, 1);
    EXPECT_EQ(summary_of(geom), (Words{"bohr.inp: amesp.kept_unit", "[1,0,1,0]"}));
    const ProgramRun made = run({"new", "--format", "json", "-o", "n.inp", "--geometry", "m.xyz", "--charge", "0",
                                 "--multiplicity", "1", "--method", "hf sto-3g", "--directive", "unknown=1"});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(summary_of(made), (Words{"n.inp: amesp.unknown_directive", "[1,0,0,1]"}));
    const ProgramRun not_made = run({"new", "--format", "json", "-o", "no.inp", "--geometry", "m.xyz", "--charge", "0",
                                     "--multiplicity", "1", "--method", "hf", "--directive", "maxcore=many"});
    EXPECT_EQ(not_made.status, 1);
    EXPECT_EQ(summary_of(not_made).back(), "[1,0,1,0]");
}

TEST_F(JsonReport, NamesWhyAnEditWasNotMade) {
    write_file(dir_ / "none.inp", "! hf sto-3g\n");
    const ProgramRun run =
        this->run({"set", "-i", "--format", "json", "none.inp", "tidy.inp", "--charge", "1", "--multiplicity", "2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(summary_of(run), testing::ElementsAre(testing::StartsWith("none.inp: 'none.inp' is left as it is: "),
                                                      "tidy.inp:", "[2,1,0,0]"));
}

TEST_F(JsonReport, EndsWithTheFileThatFailed) {
    std::filesystem::create_directory(dir_ / "folder");
    write_file(dir_ / "folder/b.inp", moves);
    ::chmod((dir_ / "folder").c_str(), 0500);
    const ProgramRun run = this->run({"fmt", "-i", "--format", "json", "moves.inp", "folder/b.inp", "tidy.inp"});
    const ProgramRun set = this->run({"set", "-i", "--format", "json", "tidy.inp", "moves.inp", "--directive", "x"});
    ::chmod((dir_ / "folder").c_str(), 0700);
    if (run.status == cannot_obey_permissions) {
        GTEST_SKIP() << "root cannot give up its rights here";
    }
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "amesp-inp: cannot write 'folder/b.inp': Permission denied\n"
              "amesp-inp: 1 of 3 files were written\n");
    EXPECT_EQ(summary_of(run),
              (Words{"moves.inp: amesp-inp.moved_line", "folder/b.inp: amesp-inp.moved_line", "[2,0,0,2]"}));
    EXPECT_EQ(summary_of(set), (Words{"tidy.inp: --directive expects NAME=VALUE, got 'x':", "[1,1,0,0]"}));
}

TEST_F(JsonReport, HasStandardOutputForItself) {
    const std::string both = "findings as JSON and the text cannot both go to standard output: ";
    const std::pair<Words, std::string> mixed[] = {
        {{"fmt", "tidy.inp"}, "add -i or --check"},
        {{"fmt", "-i", "-"}, "add -i or --check"},
        {{"fmt", "-i", "--diff", "tidy.inp"}, "leave out --diff"},
        {{"fmt", "--check", "--diff", "tidy.inp"}, "leave out --diff"},
        {{"set", "tidy.inp", "--charge", "1"}, "add -i or -o"},
        {{"set", "tidy.inp", "-o", "-", "--charge", "1"}, "add -i or -o"},
        {{"geom", "tidy.inp", "--from-xyz", "m.xyz"}, "add -i or -o"},
        {{"new", "--geometry", "m.xyz", "--method", "hf"}, "add -o"},
        {{"new", "--geometry", "m.xyz", "--method", "hf", "-o", "x", "--diff"}, "leave out --diff"},
    };
    for (const auto& [words, way] : mixed) {
        Words as_json = words;
        as_json.insert(as_json.end(), {"--format", "json"});
        const ProgramRun run = this->run(as_json);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, testing::StartsWith("amesp-inp " + words[0] + ": " + both + way + "\n"))
            << testing::PrintToString(words);
    }
    EXPECT_EQ(run({"set", "-", "-o", "out", "--charge", "1", "--format", "json"}).status, 1);
    EXPECT_EQ(run({"geom", "tidy.inp", "--to-xyz", "x", "--format", "json"}).status, 2);
}

}  // namespace
}  // namespace velk::test
