// amesp-inp fmt: canonical text, and nothing lost in silence.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr auto geometry = ">xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";

struct Reported {
    const char* name;
    std::string text;
    const char* code;
    bool refused;
};

const Reported reported[] = {
    {"WordsAfterTheFourthOfAnAtom", "! hf\n\n>xyz 0 1\n  He 0 0 0 0.5\nend\n", "dropped_words", true},
    {"WordsAfterTheMultiplicity", "! hf\n\n>xyz 0 1 extra\n  He 0 0 0\nend\n", "dropped_words", true},
    {"AValueThatHoldsAnEqualsSign", "! hf\n\n>scf\n  a = b = c\nend\n", "reads_differently", true},
    {"AKeyThatHoldsABlank", "! hf\n\n>scf\n  a b = c\nend\n", "reads_differently", true},
    {"AnEntryNamedEnd", "! hf\n\n>scf\n  end =\n  maxcyc 5\nend\n", "reads_differently", true},
    {"AnEleventhDecimal", "! hf\n\n>xyz 0 1\n  He 0 0 0.12345678901\nend\n", "rounded", false},
    {"ACommentBetweenTheBlocks", std::string("! hf\n# why\n\n") + geometry, "moved_line", false},
    {"ACommentBeforeAnEntry", "! hf\n\n>scf\n  # why\n  maxcyc 5\nend\n", "moved_line", false},
    {"ALooseLine", std::string("loose\n! hf\n\n") + geometry, "lost_line", true},
    {"AnAtomThatIsNone", "! hf\n\n>xyz 0 1\n  He 0 0\n  He 0 0 1\nend\n", "lost_line", true},
    {"AnAtomAfterTheEnd", std::string("! hf\n") + geometry + "He 0 0 1\nend\n", "lost_line", true},
    {"AnotherFormat", "Dear all,\n\n\nthe job has ended.\n", "other_format", true},
    {"ADirectiveAfterTheMethodLine", std::string("! hf\n% maxcore 5\n\n") + geometry, "moved_line", false},
    {"ASecondMethodLine", std::string("! hf\n! sto-3g\n\n") + geometry, "moved_line", false},
    {"BlankLines", std::string("! hf\n\n\n\n") + geometry, "moved_blank_lines", false},
    {"AMissingEnd", "! hf\n\n>xyz 0 1\n  He 0 0 0\n", "added_end", true},
    {"AMarkerAlone", std::string("%\n! hf\n\n") + geometry, "dropped_marker", true},
};

class Reporting : public testing::TestWithParam<Reported> {};

TEST_P(Reporting, NamesWhatFormattingWouldLoseMoveOrRound) {
    const Reported& param = GetParam();
    const TempDir dir;
    write_file(dir / "a.inp", param.text);
    const ProgramRun run = run_edit({"fmt", "-i", dir / "a.inp"});
    EXPECT_THAT(run.err, HasSubstr("[amesp-inp." + std::string(param.code) + "]"));
    EXPECT_EQ(run.status, param.refused ? 1 : 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(read_file(dir / "a.inp") == param.text, param.refused);
    EXPECT_EQ(run_edit({"fmt", "-i", "--force", dir / "a.inp"}).status, 0);
    EXPECT_NE(read_file(dir / "a.inp"), param.text);
}

INSTANTIATE_TEST_SUITE_P(Fmt, Reporting, testing::ValuesIn(reported),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Fmt, PrintsTheCanonicalText) {
    const ProgramRun run = run_edit({"fmt", "-"}, {.input = "%maxcore 5\n\n!HF\n\n>XYZ  0 1\nHe 0 0 1d0\nEND"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "% maxcore 5\n\n! hf\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 1.0000000000\nend\n");
    EXPECT_EQ(run.err, "");
}

TEST(Fmt, LeavesCanonicalTextAlone) {
    const ProgramRun run = run_edit({"fmt", "-"}, {.input = water});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, water);
    EXPECT_EQ(run.err, "");
}

TEST(Fmt, ListsFilesThatWouldChangeAndWritesNone) {
    const TempDir dir;
    write_file(dir / "good.inp", water);
    write_file(dir / "other.inp", "!HF\n");
    const ProgramRun run = run_edit({"fmt", "--check", dir / "good.inp", dir / "other.inp"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, dir / "other.inp\n");
    EXPECT_EQ(run.err, "2 files checked: 1 would change\n");
    EXPECT_EQ(read_file(dir / "other.inp"), "!HF\n");
    EXPECT_EQ(run_edit({"fmt", "--check", dir / "good.inp"}).status, 0);
}

TEST(Fmt, EndsACheckWithASummaryAndGivesDetailsWithADifference) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    write_file(dir / "b.inp", "! hf\n# why\n\n>scf\nend\n");
    write_file(dir / "c.inp", "! HF\n>scf\n");
    write_file(dir / "d.inp", "no input\n");
    const RunOptions inside{.directory = dir.path()};
    const std::vector<std::string> check = {"fmt", "--check", "a.inp", "b.inp", "c.inp", "d.inp", "missing.inp"};
    const auto with = [&](const char* option) {
        std::vector<std::string> arguments = check;
        arguments.emplace_back(option);
        return run_edit(arguments, inside);
    };
    const ProgramRun run = run_edit(check, inside);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "b.inp\nc.inp\nd.inp\n");
    EXPECT_EQ(run.err,
              "amesp-inp: cannot read 'missing.inp': No such file or directory\n"
              "4 files checked: 1 would change, 2 would be refused; 1 file could not be read\n");
    EXPECT_EQ(with("-q").err, "amesp-inp: cannot read 'missing.inp': No such file or directory\n");
    EXPECT_THAT(with("--force").err, HasSubstr("4 files checked: 3 would change;"));
    const ProgramRun details = with("--diff");
    EXPECT_THAT(details.out, HasSubstr("b.inp\n--- a/b.inp\t\n"));
    EXPECT_THAT(details.out, testing::EndsWith("\nc.inp\nd.inp\n"));
    EXPECT_THAT(details.err, HasSubstr("b.inp:2:1: warning: "));
    EXPECT_THAT(details.err, HasSubstr("c.inp:2:1: error: "));
    EXPECT_THAT(details.err, HasSubstr("d.inp: error: No line begins with"));
    EXPECT_EQ(run_edit({"fmt", "--check", "a.inp"}, inside).err, "1 file checked: 0 would change\n");
}

TEST(Fmt, RefusesAnotherFormatAlsoWhereNothingWouldChange) {
    EXPECT_EQ(run_edit({"fmt", "-"}, {.input = "hello\n"}).status, 1);
    EXPECT_THAT(run_edit({"fmt", "--force", "-"}, {.input = "hello\n"}).out, HasSubstr("hello\n"));
    const ProgramRun comments = run_edit({"fmt", "-"}, {.input = "# hello\n; you\n"});
    EXPECT_EQ(comments.status, 0);
    EXPECT_EQ(comments.out, "# hello\n; you\n");
}

TEST(Fmt, LeavesEmptyFilesAlone) {
    for (const char* const text : {"", "\n", " \t\r\n\n"}) {
        const TempDir dir;
        write_file(dir / "a.inp", text);
        EXPECT_EQ(run_edit({"fmt", "--check", dir / "a.inp"}).status, 0);
        EXPECT_EQ(run_edit({"fmt", "-i", dir / "a.inp"}).err, "");
        EXPECT_EQ(read_file(dir / "a.inp"), text);
    }
}

std::string with_crlf(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    return result;
}

TEST(Fmt, KeepsTheLineEndsOfMostLines) {
    const ProgramRun kept = run_edit({"fmt", "--check", "-"}, {.input = with_crlf(water)});
    EXPECT_EQ(kept.status, 0) << kept.out << kept.err;
    const std::pair<const char*, const char*> cases[] = {
        {"!HF\r\n% mem 5\r\n", "% maxcore 5\r\n\r\n! hf\r\n"},
        {"!HF\r\n", "! hf\r\n"},
        {"!HF\r\n% mem 5", "% maxcore 5\r\n\r\n! hf\r\n"},
        {"!HF\r\n% mem 5\r\n#\n", "% maxcore 5\r\n\r\n! hf\r\n\r\n#\r\n"},
        {"!HF\r\n% mem 5\n", "% maxcore 5\n\n! hf\n"},
        {"!HF", "! hf\n"},
    };
    for (const auto& [text, formatted] : cases) {
        EXPECT_EQ(run_edit({"fmt", "-"}, {.input = text}).out, formatted) << text;
        EXPECT_EQ(run_edit({"fmt", "-"}, {.input = formatted}).out, formatted) << text;
    }
}

TEST(CanonicalForm, KeepsTheLineEndsOfMostLinesInEveryVerb) {
    const TempDir dir;
    const std::string text = with_crlf("!HF sto-3g\n>scf\n  maxcyc 50\n>xyz 0 1\nHe 0 0 0\nend\n");
    const std::string after = with_crlf(
        "! hf sto-3g\n\n>scf\n  maxcyc 50\nend\n\n>xyz 0 1\n"
        "  He 0.0000000000 0.0000000000 0.0000000000\nend\n");
    write_file(dir / "fix.inp", text);
    EXPECT_EQ(run_edit({"check", "-q", "--fix", "--canonical", dir / "fix.inp"}).status, 0);
    EXPECT_EQ(read_file(dir / "fix.inp"), after);
    write_file(dir / "m.xyz", "1\n\nHe 0 0 0\n");
    EXPECT_EQ(run_edit({"set", "--canonical", "-", "--entry", "scf.maxcyc=50"}, {.input = after}).out, after);
    EXPECT_EQ(run_edit({"geom", "--canonical", "-", "--from-xyz", dir / "m.xyz"}, {.input = after}).out, after);
}

TEST(Fmt, DoesNotPrintSeveralTextsOneAfterTheOther) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    write_file(dir / "b.inp", "!HF\n");
    const ProgramRun set = run_edit({"set", dir.path(), "--directive", "mem=5"});
    for (const auto& [run, verb] : {std::pair(run_edit({"fmt", dir / "a.inp", dir / "b.inp"}), "fmt"), {set, "set"}}) {
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err,
                  std::string("amesp-inp ") + verb +
                      ": the texts of 2 files cannot be printed one after the other: add -i or --diff, or name "
                      "one file\nTry 'amesp-inp " +
                      verb + " --help'.\n");
    }
    EXPECT_EQ(run_edit({"fmt", "--diff", dir.path()}).status, 0);
    EXPECT_EQ(run_edit({"fmt", "-i", dir.path()}).status, 0);
}

TEST(Previews, HaveTheSameNamesInAllVerbs) {
    const TempDir dir;
    write_file(dir / "a.inp", "!HF\n>scf\n");
    write_file(dir / "m.xyz", "1\n\nHe 0 0 0\n");
    const std::vector<std::string> commands[] = {
        {"check", "--fix", "a.inp"},
        {"fmt", "--force", "-i", "a.inp"},
        {"set", "--directive", "mem=5", "-i", "a.inp"},
        {"geom", "--from-xyz", "m.xyz", "--charge", "0", "--multiplicity", "1", "--force", "-i", "a.inp"},
        {"new", "--geometry", "m.xyz", "--charge", "0", "--multiplicity", "1", "--method", "hf", "-o", "a.inp"},
    };
    for (std::vector<std::string> command : commands) {
        command.emplace_back("--diff");
        const ProgramRun diff = run_edit(command, {.directory = dir.path()});
        EXPECT_THAT(diff.out, testing::StartsWith("--- a/a.inp\t\n+++ b/a.inp\t\n")) << command[0];
        command.back() = "--dry-run";
        EXPECT_EQ(run_edit(command, {.directory = dir.path()}).out, diff.out) << command[0];
        EXPECT_EQ(read_file(dir / "a.inp"), "!HF\n>scf\n") << command[0];
    }
    EXPECT_EQ(run_edit({"geom", "--to-xyz", "-", "--diff", "a.inp"}, {.directory = dir.path()}).status, 2);
}

TEST(Findings, OfEditsAreColouredAndLeftOutAsThoseOfACheck) {
    const std::string moves = "! hf\n# why\n\n>scf\nend\n";
    EXPECT_THAT(run_edit({"fmt", "-"}, {.input = moves}).err, testing::StartsWith("<stdin>:2:1: warning: "));
    EXPECT_EQ(run_edit({"fmt", "-q", "-"}, {.input = moves}).err, "");
    EXPECT_THAT(run_edit({"fmt", "--color", "always", "-"}, {.input = moves}).err, HasSubstr("\033[1;35mwarning"));
    const std::string wrong = "maxcore=lots";
    for (const char* const verb : {"set", "new"}) {
        const TempDir dir;
        write_file(dir / "m.xyz", "1\n\nHe 0 0 0\n");
        std::vector<std::string> arguments = {verb, "-q", "--color", "always", "--directive", wrong};
        if (verb == std::string("set")) {
            arguments.emplace_back("-");
        } else {
            arguments.insert(arguments.end(),
                             {"--geometry", dir / "m.xyz", "--charge", "0", "--multiplicity", "1", "--method", "hf"});
        }
        EXPECT_THAT(run_edit(arguments, {.input = water}).err, HasSubstr("\033[1;31merror")) << verb;
    }
}

TEST(Fmt, GoesOnAfterAFileItCannotReadWhereItOnlyChecks) {
    const TempDir dir;
    write_file(dir / "a.inp", "!HF\n");
    const ProgramRun run = run_edit({"fmt", "--check", dir / "missing.inp", dir / "a.inp"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("missing.inp"));
    EXPECT_EQ(run.out, dir / "a.inp\n");
    EXPECT_EQ(run_edit({"fmt", "-i", dir / "missing.inp", dir / "a.inp"}).status, 2);
    EXPECT_EQ(read_file(dir / "a.inp"), "!HF\n");
    EXPECT_EQ(dir.entry_count(), 1U);
}

TEST(Fmt, FailsWhenStandardOutputIsFull) {
    const ProgramRun run = run_edit({"fmt", "-"}, {.input = water, .out_path = "/dev/full"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("cannot write"));
}

std::string random_text(std::mt19937& random) {
    static const std::vector<std::string> lines = {"! hf sto-3g",  "!",
                                                   "% maxcore 5",  "%",
                                                   "%x = 3",       ">xyz 0 1",
                                                   ">xyz +1 2 x",  ">scf",
                                                   ">zmat",        "end",
                                                   " END ",        "O 0 0 0.12345678901",
                                                   "H 1d3 -0 nan", "H 0 0 inf w",
                                                   "maxcyc = 5",   "a = b = c",
                                                   "a b = c",      "end = 1",
                                                   "= 5",          "# note",
                                                   "; note",       "",
                                                   "  ",           "loose\ttext",
                                                   "\xff\x01",     ">"};
    std::string text;
    for (auto count = random() % 14; count > 0; --count) {
        text += lines[random() % lines.size()];
        text += random() % 8 == 0 ? "\r\n" : "\n";
    }
    if (random() % 3 == 0 && !text.empty()) {
        text.pop_back();
    }
    return text;
}

TEST(Fmt, ChangesNothingMoreInAFileThatItAccepted) {
    std::mt19937 random(7);
    int accepted = 0;
    for (int round = 0; round < 600; ++round) {
        const std::string text = random_text(random);
        const ProgramRun once = run_edit({"fmt", "-"}, {.input = text});
        ASSERT_THAT(once.status, testing::AnyOf(0, 1)) << text;
        if (once.status == 0) {
            ++accepted;
            const ProgramRun twice = run_edit({"fmt", "-"}, {.input = once.out});
            EXPECT_EQ(twice.out, once.out) << text;
            EXPECT_EQ(twice.err, "") << text;
        } else {
            EXPECT_EQ(once.out, "");
            EXPECT_THAT(once.err, HasSubstr(": error: ")) << text;
        }
    }
    EXPECT_GT(accepted, 30);
}

TEST(Fmt, ShowsADifferenceThatPatchTakes) {
    std::mt19937 random(11);
    const TempDir dir;
    for (int round = 0; round < 100; ++round) {
        const std::string text = random_text(random) + "\n\n\n\n\n" + random_text(random);
        write_file(dir / "a.inp", text);
        const ProgramRun diff = run_edit({"fmt", "--diff", "--force", "a.inp"}, {.directory = dir.path()});
        ASSERT_EQ(diff.status, 0) << text;
        const std::string formatted = run_edit({"fmt", "--force", "-"}, {.input = text}).out;
        write_file(dir / "d", diff.out);
        const std::string patch = "cd " + dir.path() + " && patch --binary -s -p1 <d";
        if (!diff.out.empty()) {
            ASSERT_EQ(std::system(patch.c_str()), 0) << text << diff.out;
        }
        ASSERT_EQ(read_file(dir / "a.inp"), formatted) << text;
    }
}

}  // namespace
}  // namespace velk::test
