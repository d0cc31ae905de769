// amesp-inp check --fix: what is fixed, what is left to the user, and that nothing else changes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

struct FixCase {
    const char* name;
    std::string text;
    std::string certain;
    std::string all;
};

std::string fixed(const TempDir& dir, const std::string& text, const std::string& option) {
    write_file(dir / "a.inp", text);
    const ProgramRun run = run_edit({"check", "--fail-on", "never", option, dir / "a.inp"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(dir.entry_count(), 1U);
    return read_file(dir / "a.inp");
}

class Fix : public testing::TestWithParam<FixCase> {};

TEST_P(Fix, ChangesWhatIsCertainAndMoreOnlyWhenAsked) {
    const TempDir dir;
    EXPECT_EQ(fixed(dir, GetParam().text, "--fix"), GetParam().certain);
    EXPECT_EQ(fixed(dir, GetParam().text, "--fix=certain"), GetParam().certain);
    EXPECT_EQ(fixed(dir, GetParam().text, "--fix=all"), GetParam().all);
}

TEST_P(Fix, FindsNothingToFixTheSecondTime) {
    const TempDir dir;
    EXPECT_EQ(fixed(dir, GetParam().certain, "--fix"), GetParam().certain);
    EXPECT_EQ(fixed(dir, GetParam().all, "--fix=all"), GetParam().all);
}

FixCase same(const char* name, const std::string& text) {
    return {name, text, text, text};
}

FixCase certain(const char* name, const std::string& text, const std::string& better) {
    return {name, text, better, better};
}

FixCase only_all(const char* name, const std::string& text, const std::string& better) {
    return {name, text, text, better};
}

INSTANTIATE_TEST_SUITE_P(
    Check, Fix,
    testing::Values(
        same("Nothing", water), same("Empty", ""), same("LooseText", "loose\nend\n"),
        // Ends at the end of the text.
        certain("LastEnd", "! hf\n>xyz 0 1\n  He 0 0 0\n", "! hf\n>xyz 0 1\n  He 0 0 0\nend\n"),
        certain("LastEndWithoutLineFeed", "! hf\n>xyz 0 1\n  He 0 0 0", "! hf\n>xyz 0 1\n  He 0 0 0\nend\n"),
        certain("LastEndWithCrLf", "! hf\r\n>xyz 0 1\r\n  He 0 0 0\r\n", "! hf\r\n>xyz 0 1\r\n  He 0 0 0\r\nend\r\n"),
        certain("LastEndBeforeBlankLines", ">xyz 0 1\n  He 0 0 0\n\n \n", ">xyz 0 1\n  He 0 0 0\nend\n\n \n"),
        certain("LastEndOfAnEmptySection", ">scf", ">scf\nend\n"),
        certain("LastEndOfAnUnknownSection", ">odd\n  a b\n", ">odd\n  a b\nend\n"),
        certain("IndentedEnd", "  >scf\n    conv 1e-6\n", "  >scf\n    conv 1e-6\n  end\n"),
        certain("CommentsOfASectionAndAfterIt", ">scf\n  conv 1e-6\n  # tight\n# after\n",
                ">scf\n  conv 1e-6\n  # tight\nend\n# after\n"),
        // Ends before what a section swallows.
        certain("EndBeforeASection", ">scf\n  conv 1e-6\n\n# geometry\n>xyz 0 1\n  He 0 0 0\nend\n",
                ">scf\n  conv 1e-6\nend\n\n# geometry\n>xyz 0 1\n  He 0 0 0\nend\n"),
        certain("EndBeforeADirective", ">scf\n  conv 1e-6\n%mem 5\n! hf\n>xyz 0 1\n  He 0 0 0\nEND\n",
                ">scf\n  conv 1e-6\nend\n%mem 5\n! hf\n>xyz 0 1\n  He 0 0 0\nEND\n"),
        certain("EndBeforeAMethodLine", ">xyz 0 1\n  He 0 0 0\n! hf sto-3g\n",
                ">xyz 0 1\n  He 0 0 0\nend\n! hf sto-3g\n"),
        certain("EveryEnd", ">scf\n>opt\n>xyz 0 1\n", ">scf\nend\n>opt\nend\n>xyz 0 1\nend\n"),
        certain("EndWithMixedLineEnds", ">scf\r\n  conv 1\n>xyz 0 1\r\n  He 0 0 0",
                ">scf\r\n  conv 1\nend\n>xyz 0 1\r\n  He 0 0 0\r\nend\r\n"),
        certain("LastEndWithoutLineEndButCrLfBefore", "! hf\r\n>scf", "! hf\r\n>scf\r\nend\r\n"),
        certain("LastEndBehindHalfALineEnd", "! hf\n>scf\r", "! hf\n>scf\r\nend\r\n"),
        // Ends that are misspelt.
        certain("MisspeltEnd", ">scf\n  conv 1e-6\nedn\n>xyz 0 1\n  He 0 0 0\nend xyz\n",
                ">scf\n  conv 1e-6\nend\n>xyz 0 1\n  He 0 0 0\nend\n"),
        certain("MisspeltAndMissingEnd", ">scf\r\n conv 1\r\n>xyz 0 1\r\n He 0 0 0\r\n end # ok\r\n>opt\r\n",
                ">scf\r\n conv 1\r\nend\r\n>xyz 0 1\r\n He 0 0 0\r\n # ok\r\n end\r\n>opt\r\nend\r\n"),
        same("MisspeltEndBeforeAnEnd", ">scf\n  conv 1e-6\nedn\nend\n"),
        // Not certain: who knows what an unknown section may hold, or what an unknown name is.
        only_all("EndOfAnUnknownSection", ">odd\n  a b\n>xyz 0 1\n  He 0 0 0\nend\n",
                 ">odd\n  a b\nend\n>xyz 0 1\n  He 0 0 0\nend\n"),
        only_all("EndBeforeAnUnknownSection", ">scf\n  conv 1e-6\n>odd\n  He 0 0 0\nend\n",
                 ">scf\n  conv 1e-6\nend\n>odd\n  He 0 0 0\nend\n"),
        only_all("EndBeforeAnUnknownAndAKnownSection", ">scf\n  conv 1\n>odd\n  a\n>xyz 0 1\n  He 0 0 0\nend\n",
                 ">scf\n  conv 1\nend\n>odd\n  a\nend\n>xyz 0 1\n  He 0 0 0\nend\n"),
        only_all("EndBeforeAnUnknownDirectiveAndASection", ">scf\n  conv 1\n%odd 5\n>xyz 0 1\n  He 0 0 0\nend\n",
                 ">scf\n  conv 1\nend\n%odd 5\n>xyz 0 1\n  He 0 0 0\nend\n"),
        certain("EndBehindAnUnknownDirectiveAmongEntries", ">scf\n%odd 5\n  conv 1\n>xyz 0 1\n  He 0 0 0\nend\n",
                ">scf\n%odd 5\n  conv 1\nend\n>xyz 0 1\n  He 0 0 0\nend\n"),
        only_all("EndBeforeAnUnknownDirective", ">scf\n  conv 1e-6\n%odd 1\n", ">scf\n  conv 1e-6\nend\n%odd 1\n"),
        // Left alone: an 'end' there would leave the lines that follow outside of every section.
        same("DirectiveBetweenEntries", ">scf\n  maxcyc 50\n%mem 5\n  conv 1e-6\nend\n"),
        same("DirectiveBeforeTheEnd", ">scf\n  maxcyc 50\n%mem 5\nend\n"),
        same("DirectiveBetweenEntriesWithoutEnd", ">scf\n  maxcyc 50\n%mem 5\n  conv 1e-6\n"),
        // Names.
        only_all("Directive", "%  maxcor   2000 \n", "%  maxcore   2000 \n"),
        only_all("Token", "!  HF\tsto-3g  otp\n", "!  HF\tsto-3g  opt\n"),
        same("TokenOfAnotherCalculation", "! b3lpy sto-3gg d3jb\n"),
        only_all("Section", ">sfc  \n  a b\nend\n", ">scf  \n  a b\nend\n"),
        only_all("Entry", ">scf\n  MaxCycc = 50 \nend\n", ">scf\n  maxcyc = 50 \nend\n"),
        only_all("EntryOfAMisspeltSection", ">sfc\n  maxcycc 50\nend\n", ">scf\n  maxcyc 50\nend\n"),
        only_all("NameAndEnd", ">sfc\n  maxcycc 50\n>xyz 0 1\n  He 0 0 0\n",
                 ">scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n"),
        same("NoNearName", "% nothinglikeit 5\n"),
        // A name that is there already is not given twice.
        same("DirectiveThatIsThere", "% mem 1\n% maxcor 2\n"), same("TokenThatIsThere", "! hf sto-3g sto-3gg\n"),
        same("SectionThatIsThere", ">sfc\nend\n>scf\nend\n"),
        same("EntryThatIsThere", ">scf\n  maxcycc 1\n  maxiter 2\nend\n"),
        only_all("TwoOfOneName", "% maxcor 1\n% maxcor 2\n", "% maxcore 1\n% maxcor 2\n"),
        only_all("EntryThatIsThereInAnotherSection", ">scf\n  maxcycc 1\nend\n>opt\n  maxcyc 2\nend\n",
                 ">scf\n  maxcyc 1\nend\n>opt\n  maxcyc 2\nend\n")),
    [](const auto& test) { return test.param.name; });

TEST(FixAll, TakesNoneOfSeveralNearNames) {
    const TempDir dir;
    write_file(dir / "schema.yaml", "directives: {name1: {}, name2: {}, other: {aliases: [othe1]}}\n");
    write_file(dir / "a.inp", "% name3 5\n% othe 5\n");
    run_program({"check", "--schema", dir / "schema.yaml", "--fix=all", dir / "a.inp"});
    EXPECT_EQ(read_file(dir / "a.inp"), "% name3 5\n% other 5\n");
}

constexpr auto open_end = "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\n";

TEST(FixedFiles, AreCheckedAgain) {
    const TempDir dir;
    write_file(dir / "a.inp", "% maxcore lots\n" + std::string(open_end));
    const ProgramRun run = run_edit({"check", "--fix", "a.inp"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, testing::StartsWith("a.inp:1:11: error: directive '% maxcore' expects integer"));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("unterminated")));
    EXPECT_EQ(run.err, "1 file checked: 1 error, 0 warnings; 1 file fixed\n");
}

TEST(FixedFiles, KeepTheirModeAndAreWrittenOnlyWhenTheyChange) {
    const TempDir dir;
    write_file(dir / "a.inp", open_end);
    write_file(dir / "b.inp", water);
    ::chmod((dir / "a.inp").c_str(), 0640);
    struct ::stat before {};
    struct ::stat after {};
    ASSERT_EQ(::stat((dir / "b.inp").c_str(), &before), 0);
    const ProgramRun run = run_edit({"check", "--fix", "--format", "json", dir.path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("\"errors\":0"));
    ASSERT_EQ(::stat((dir / "b.inp").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    ASSERT_EQ(::stat((dir / "a.inp").c_str(), &after), 0);
    EXPECT_EQ(after.st_mode & 0777U, 0640U);
    EXPECT_EQ(read_file(dir / "a.inp"), open_end + std::string("end\n"));
}

TEST(FixDiff, ShowsTheFixesAndWritesNothing) {
    const TempDir dir;
    write_file(dir / "a.inp", open_end);
    const ProgramRun run = run_edit({"check", "--fix", "--diff", "a.inp"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "--- a/a.inp\t\n+++ b/a.inp\t\n@@ -1,3 +1,4 @@\n ! hf sto-3g\n >xyz 0 1\n   He 0 0 0\n+end\n");
    EXPECT_EQ(run.err, "1 file checked: 0 errors, 0 warnings; 1 file would be fixed\n");
    EXPECT_EQ(read_file(dir / "a.inp"), open_end);
    EXPECT_EQ(run_edit({"check", "--fix", "--diff", "-"}, {.input = open_end}).status, 0);
}

TEST(FixCanonical, WritesAFixedFileInCanonicalFormUnlessThatLosesSomething) {
    const TempDir dir;
    write_file(dir / "a.inp", open_end);
    write_file(dir / "b.inp", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n");
    write_file(dir / "c.inp", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0 word\n");
    const std::string untouched[] = {read_file(dir / "b.inp"), read_file(dir / "c.inp")};
    const ProgramRun run = run_edit({"check", "--fix", "--canonical", dir.path()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(read_file(dir / "a.inp"), "! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n");
    EXPECT_EQ(read_file(dir / "b.inp"), untouched[0]);
    EXPECT_EQ(read_file(dir / "c.inp"), untouched[1]);
    EXPECT_THAT(run.err, HasSubstr("c.inp' is left as it is: canonical form would lose content\n"));
    EXPECT_THAT(run.err, HasSubstr("; 1 file fixed; 1 file could not be fixed\n"));
}

TEST(Fix, IsRefusedWhereNothingCanBeWritten) {
    const ProgramRun stdin_run = run_edit({"check", "--fix", "-"}, {.input = open_end});
    EXPECT_EQ(stdin_run.status, 2);
    EXPECT_EQ(stdin_run.out, "");
    EXPECT_EQ(stdin_run.err,
              "amesp-inp check: standard input cannot be fixed in place: add --diff\nTry 'amesp-inp check --help'.\n");
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--fix=some"},
                                                  {"--diff"},
                                                  {"--canonical"},
                                                  {"--fix", "--diff", "--format", "json"}}) {
        std::vector<std::string> arguments = {"check", "/nonexistent"};
        arguments.insert(arguments.end(), wrong.begin(), wrong.end());
        const ProgramRun run = run_edit(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, HasSubstr("--help")) << wrong[0];
    }
}

// Without the ends that were added, what is left is the text before.
bool only_ends_were_added(const std::string& before, const std::string& after) {
    std::size_t place = 0;
    std::size_t at = 0;
    while (at < after.size()) {
        const std::size_t stop = std::min(after.find('\n', at), after.size() - 1) + 1;
        const std::string line = after.substr(at, stop - at);
        const std::size_t old_stop = std::min(before.find('\n', place), before.size() - 1) + 1;
        const std::string old = place < before.size() ? before.substr(place, old_stop - place) : "";
        if (!old.empty() && (line == old || line == old + "\n")) {
            place = old_stop;
        } else if (line.find("end") == std::string::npos) {
            return false;
        }
        at = stop;
    }
    return place == before.size();
}

TEST(Fix, OnlyAddsEndsInRandomTexts) {
    const TempDir dir;
    std::mt19937 random(70);
    const std::string pieces[] = {"% mem 5\n", "! hf\n",    ">xyz 0 1\n", ">scf\n", "end\n",  "\n",  " # c\n", "# c\n",
                                  " conv 1\n", "H 0 0 1\n", "odd\n",      ">odd\n", "%odd\n", ">\n", "\r\n"};
    for (int file = 0; file < 300; ++file) {
        std::string text;
        for (std::size_t n = random() % 16; n > 0; --n) {
            text += pieces[random() % std::size(pieces)];
        }
        text += random() % 4 == 0 ? "END" : "";
        write_file(dir / (std::to_string(file) + ".inp"), text);
        write_file(dir / (std::to_string(file) + ".old"), text);
    }
    EXPECT_EQ(run_edit({"check", "--fail-on", "never", "--fix", dir.path()}).status, 0);
    int changed = 0;
    for (int file = 0; file < 300; ++file) {
        const std::string before = read_file(dir / (std::to_string(file) + ".old"));
        const std::string after = read_file(dir / (std::to_string(file) + ".inp"));
        changed += before == after ? 0 : 1;
        EXPECT_TRUE(only_ends_were_added(before, after)) << before << "---\n" << after;
    }
    EXPECT_GT(changed, 50);
    EXPECT_LT(changed, 250);
    const ProgramRun again = run_edit({"check", "--fail-on", "never", "--fix", dir.path()});
    EXPECT_THAT(again.err, testing::Not(HasSubstr("fixed")));
}

}  // namespace
}  // namespace velk::test
