// amesp-inp check.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";
const std::string good = "! hf sto-3g\n>xyz 0 1\nH 0 0 0\nend\n";

ProgramRun check_text(const std::string& text, std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"check", "-", "--stdin-filename", "water.inp", "--schema", starter});
    return run_program(options, {.input = text});
}

TEST(Check, PrintsFindingsInTheCompilersFormat) {
    const ProgramRun run = check_text("% maxcore lots\n\n\n! b3lpy def2-svp\n>xyz 0 1\nH 0 0 0\nend\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "water.inp:1:11: error: directive '% maxcore' expects integer, got 'lots'. [amesp.invalid_value]\n"
              "    1 | % maxcore lots\n"
              "      |           ^~~~\n"
              "water.inp:4:3: warning: Unknown AMESP method-line token 'b3lpy' was preserved. "
              "[amesp.unknown_method_token]\n"
              "    4 | ! b3lpy def2-svp\n"
              "      |   ^~~~~\n"
              "      = help: did you mean 'b3lyp'?\n");
    EXPECT_EQ(run.err, "1 file checked: 1 error, 1 warning\n");
}

TEST(Check, FindsEveryMistakeOfTheExampleInTextAndInJson) {
    const RunOptions in_source{.directory = VELK_SOURCE_DIRECTORY};
    const ProgramRun text = run_program({"check", "--schema", starter, "examples/mistakes.inp"}, in_source);
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.out, read_file(VELK_SOURCE_DIRECTORY "/tests/golden/mistakes.txt"));
    const ProgramRun json = run_program(
        {"check", "--schema", "schemas/input/amesp.yaml", "--format", "json", "examples/mistakes.inp"}, in_source);
    EXPECT_EQ(json.status, 1);
    EXPECT_EQ(nlohmann::json::parse(json.out),
              nlohmann::json::parse(read_file(VELK_SOURCE_DIRECTORY "/tests/golden/mistakes.json")));
}

TEST(Check, SaysNothingOfAGoodFile) {
    const ProgramRun run =
        run_program({"check", VELK_SOURCE_DIRECTORY "/examples/water.inp"});  // with the default schema
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "1 file checked: 0 errors, 0 warnings\n");
}

struct PlaceCase {
    std::string text;
    std::string line;  // one that must stand in the report
};

TEST(Check, GivesAPlaceToWhatTheLibraryGivesNone) {
    const PlaceCase cases[] = {
        {"# title\n\n  % maxcore 5\n>xyz 0 1\nH 0 0 0\nend\n",
         "water.inp:3:3: error: AMESP input requires a non-empty"},
        {"", "water.inp:1:1: error: AMESP input requires a non-empty"},
        {"! hf\n% maxcore 5\n", "water.inp:2:1: error: AMESP input requires one >xyz or >zmat"},
        {good + "  >zmat\nend\n", "water.inp:5:3: error: AMESP input must not contain multiple"},
        {good + ">zmat\nend\n", "\nwater.inp:2:1: note: the first coordinate section is here\n"},
        {good + ">scf\nend\n>opt\nend\n>SCF\nend\n",
         "water.inp:9:1: error: AMESP section '>scf' may appear only once."},
        {good + ">scf\nend\n>opt\nend\n>SCF\nend\n", "\nwater.inp:5:1: note: the first one is here\n"},
        {"! hf\n>xyz 0 1\nH 0 0 0\n% maxcore 5\n",
         "water.inp:4:1: error: Section '>xyz' has no 'end' before this line, which is read as part of it."},
        {good + ">scf\nconv 1e-6\n", "= help: add a line 'end' after the last line of the section"},
    };
    for (const PlaceCase& c : cases) {
        EXPECT_THAT(check_text(c.text).out, HasSubstr(c.line)) << c.text;
    }
}

TEST(Check, OffersNearNamesAndNamesOfOtherKinds) {
    const PlaceCase cases[] = {
        {"% maxcor 5\n" + good, "= help: did you mean 'maxcore'?"},
        {"% memry 5\n" + good, "= help: did you mean 'memory'?"},
        {"% scf 5\n" + good, "= help: 'scf' is known as a section: write '>scf' with a closing 'end'"},
        {"! ub3lpy\n" + good, "= help: did you mean 'ub3lyp'?"},
        {"! maxcore\n" + good, "'maxcore' is known as a directive"},
        {">scff\nend\n" + good, "= help: did you mean 'scf'?"},
        {">b3lyp\nend\n" + good, "'b3lyp' is known as a method-line token"},
        {">scf\nmaxcyle 3\nend\n" + good, "'maxcyc'"},
        {">scf\nhessian unit\nend\n" + good, "'hessian' is known as an entry of '>opt'"},
        {">scf\nguess x\nend\n" + good, "= help: allowed values: core, gwh, huckel, sad, read"},
        {">scf\ndiis maybe\nend\n" + good, "= help: allowed values: on, off, true, false, yes, no, 1, 0"},
    };
    for (const PlaceCase& c : cases) {
        EXPECT_THAT(check_text(c.text).out, HasSubstr(c.line)) << c.text;
    }
    EXPECT_THAT(check_text("! zzzzzzzz\n" + good).out, testing::Not(HasSubstr("did you mean")));
}

TEST(Check, ReportsAMissingEndOnce) {
    const std::string out = check_text("! hf\n>xyz 0 1\nH 0 0 0\n").out;
    EXPECT_THAT(out, StartsWith("water.inp:2:1: error: Section '>xyz' has no 'end'. [amesp-inp.missing_end]"));
    EXPECT_EQ(out.find("unterminated_section", out.find("unterminated_section") + 1), std::string::npos);
    EXPECT_THAT(check_text(good + ">odd\n").out, HasSubstr("note: from this: Section '>odd' reached end-of-file"));
}

TEST(Check, ExitsByTheFailLevel) {
    const std::string warns = "! odd\n" + good.substr(good.find('>'));
    EXPECT_EQ(check_text(warns).status, 0);
    EXPECT_EQ(check_text(warns, {"--fail-on", "warning"}).status, 1);
    EXPECT_EQ(check_text("").status, 1);
    EXPECT_EQ(check_text("", {"--fail-on", "never"}).status, 0);
    EXPECT_EQ(check_text(good, {"--fail-on", "warning"}).status, 0);
}

TEST(Check, ChecksEveryOtherFileWhenOneCannotBeRead) {
    const TempDir dir;
    write_file(dir / "b.inp", "");
    for (const char* const format : {"text", "json"}) {
        const ProgramRun run = run_program(
            {"check", "--schema", starter, "--format", format, dir / "a.inp", dir / "b.inp", dir / "c.inp"});
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.out, HasSubstr("missing_geometry"));
        EXPECT_THAT(run.err,
                    HasSubstr("amesp-inp: cannot read '" + (dir / "a.inp") + "': No such file or directory\n"));
        EXPECT_THAT(run.err, HasSubstr("1 file checked: 2 errors, 0 warnings; 2 files could not be read\n"));
    }
}

TEST(Check, TellsUsageErrorsFromFindings) {
    const std::vector<std::string> wrong[] = {{},
                                              {"check"},
                                              {"nonsense"},
                                              {"check", "x", "--format", "xml"},
                                              {"check", "x", "--fail-on", "x"},
                                              {"check", "x", "-j", "0"},
                                              {"check", "x", "--unknown"},
                                              {"check", "x", "-j", "many"}};
    for (const std::vector<std::string>& arguments : wrong) {
        const ProgramRun run = run_program(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err, "");
    }
}

TEST(Check, SaysWhereItLookedWhenThereIsNoUsableSchema) {
    const TempDir dir;
    write_file(dir / "bad.yaml", "directives: [");
    ProgramRun run = run_program({"check", "--schema", dir / "bad.yaml", starter});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, StartsWith("amesp-inp: failed to load AMESP input schema '" + (dir / "bad.yaml") + "': "));
    run = run_program({"check", "--schema", dir / "none.yaml", starter});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("bad file"));
}

TEST(Check, TakesTheSchemaThatTheEnvironmentNames) {
    const TempDir dir;
    write_file(dir / "mine.yaml", "method_tokens: {odd: }\nsections: {xyz: {parse_mode: xyz}}\n");
    const ProgramRun run = run_program({"check", "--fail-on", "warning", "-"},
                                       {.input = "! odd\n>xyz 0 1\nH 0 0 0\nend\n",
                                        .environment = {"VELK_AMESP_INP_SCHEMA_YAML=" + (dir / "mine.yaml")}});
    EXPECT_EQ(run.status, 0) << run.out << run.err;
}

TEST(Check, WalksDirectoriesInByteOrderForItsPatterns) {
    const TempDir dir;
    std::filesystem::create_directories(dir / "sub/deep");
    for (const char* const name : {"b.inp", "a.aip", "c.txt", "sub/z.inp", "sub/deep/y.inp"}) {
        write_file(dir / name, "");
    }
    std::filesystem::create_directory_symlink(dir.path(), dir / "sub/loop");
    const auto files = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"check", "--schema", starter, "--format", "json", dir.path()});
        std::string list;
        const auto report = nlohmann::json::parse(run_program(options).out);
        for (const auto& file : report["files"]) {
            list += file["file"].get<std::string>().substr(dir.path().size() + 1) + " ";
        }
        return list;
    };
    EXPECT_EQ(files({}), "a.aip b.inp sub/deep/y.inp sub/z.inp ");
    EXPECT_EQ(files({"--pattern", "*.txt"}), "c.txt ");
}

TEST(Check, PrintsTheSameWhateverTheNumberOfThreads) {
    const TempDir dir;
    for (int i = 0; i < 200; ++i) {
        write_file(dir / (std::to_string(i) + ".inp"), std::string(static_cast<std::size_t>(i % 7), '\n') + "odd\n");
    }
    for (const char* const format : {"text", "json"}) {
        const ProgramRun one = run_program({"check", "--schema", starter, "--format", format, "-j", "1", dir.path()});
        const ProgramRun four = run_program({"check", "--schema", starter, "--format", format, "-j", "4", dir.path()});
        EXPECT_EQ(one.out, four.out);
        EXPECT_EQ(one.err, four.err);
        EXPECT_EQ(one.err, "200 files checked: 400 errors, 200 warnings\n");
    }
}

TEST(Check, ColoursOnlyWhenAsked) {
    EXPECT_EQ(check_text("x").out.find('\033'), std::string::npos);
    EXPECT_NE(check_text("x", {"--color", "always"}).out.find('\033'), std::string::npos);
    EXPECT_EQ(check_text("x", {"--color", "never"}).out.find('\033'), std::string::npos);
}

TEST(Check, IsQuietOnStandardErrorWhenAsked) {
    const ProgramRun run = check_text("x", {"--quiet"});
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out, "");
}

TEST(Check, KeepsControlBytesFromTheTerminalAndAlignsTabs) {
    const std::string out = check_text("\t% maxcore \x1b[31m\x07\n" + good).out;
    EXPECT_EQ(out.find('\x1b'), std::string::npos);
    EXPECT_THAT(out, HasSubstr("    1 | \t% maxcore ?[31m?\n      | \t          ^~~~"));
}

TEST(Check, MarksCharactersAndNotTheirBytes) {
    const ProgramRun run =
        run_program({"check", "--schema", starter, "-"}, {.input = "! \u00e4\u20ac \u00fc\u0085x\n"});
    EXPECT_THAT(run.out, HasSubstr("<stdin>:1:3: warning"));
    EXPECT_THAT(run.out, HasSubstr("    1 | ! \u00e4\u20ac \u00fc?x\n      |   ^~\n"));
    EXPECT_THAT(run.out, HasSubstr("<stdin>:1:9: warning"));
    EXPECT_THAT(run.out, HasSubstr("    1 | ! \u00e4\u20ac \u00fc?x\n      |      ^~~\n"));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("\u0085")));
}

TEST(Check, ShowsThePartOfALongLineThatMatters) {
    const std::string out = check_text("! " + std::string(100000, 'x') + " odd\n" + good.substr(good.find('>'))).out;
    EXPECT_LT(out.size(), 202000U);  // the messages quote the name in full
    EXPECT_THAT(out, HasSubstr("x odd\n      | "));
}

TEST(Check, SurvivesBytesThatAreNoText) {
    const std::string bytes("! \xff\xfe\0 odd\n>\x80\n% \0\n", 17);
    EXPECT_EQ(check_text(bytes).status, 1);
    const ProgramRun json = check_text(bytes, {"--format", "json"});
    EXPECT_TRUE(nlohmann::json::accept(json.out));
}

TEST(Check, FailsWhenItsReportCannotBeWritten) {
    for (const char* const format : {"text", "json"}) {
        const ProgramRun run = run_program({"check", "--schema", starter, "--format", format, "-"},
                                           {.input = "x", .out_path = "/dev/full"});
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, HasSubstr("amesp-inp: cannot write to standard output\n"));
    }
}

TEST(Check, TakesNamesThatBeginWithADashAfterTwoDashes) {
    const TempDir dir;
    write_file(dir / "-x.inp", good);
    const ProgramRun run = run_program({"check", "--schema", starter, "--", "-x.inp"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Help, OfEachVerbBeginsWithExamples) {
    for (const char* const verb : {"check", "explain", "show"}) {
        const ProgramRun run = run_program({verb, "--help"});
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.out, StartsWith(std::string("Examples:\n  amesp-inp ") + verb));
    }
    EXPECT_EQ(run_program({"--version"}).out, "amesp-inp 0.9.0\n");
}

}  // namespace
}  // namespace velk::test
