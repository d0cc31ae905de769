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
    {"ALooseLine", std::string("loose\n! hf\n\n") + geometry, "moved_line", false},
    {"ADirectiveAfterTheMethodLine", std::string("! hf\n% maxcore 5\n\n") + geometry, "moved_line", false},
    {"ASecondMethodLine", std::string("! hf\n! sto-3g\n\n") + geometry, "moved_line", false},
    {"BlankLines", std::string("! hf\n\n\n\n") + geometry, "moved_blank_lines", false},
    {"AMissingEnd", "! hf\n\n>xyz 0 1\n  He 0 0 0\n", "added_end", false},
    {"AMarkerAlone", std::string("%\n! hf\n\n") + geometry, "dropped_marker", false},
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
    EXPECT_EQ(read_file(dir / "other.inp"), "!HF\n");
    EXPECT_EQ(run_edit({"fmt", "--check", dir / "good.inp"}).status, 0);
}

TEST(Fmt, GoesOnAfterAFileItCannotRead) {
    const TempDir dir;
    write_file(dir / "a.inp", "!HF\n");
    const ProgramRun run = run_edit({"fmt", "-i", dir / "missing.inp", dir / "a.inp"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("missing.inp"));
    EXPECT_EQ(read_file(dir / "a.inp"), "! hf\n");
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
        text += lines[random() % lines.size()] + (random() % 8 == 0 ? "\r\n" : "\n");
    }
    if (random() % 3 == 0 && !text.empty()) {
        text.pop_back();
    }
    return text;
}

TEST(Fmt, ChangesNothingMoreInAFileThatItAccepted) {
    std::mt19937 random(7);
    int accepted = 0;
    for (int round = 0; round < 300; ++round) {
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
