// amesp-inp get, set, geom and new, as a user runs them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string with(std::string text, const std::string& old, const std::string& now) {
    return text.replace(text.find(old), old.size(), now);
}

struct Got {
    const char* key;
    const char* out;
    int status;
};

class Key : public testing::TestWithParam<Got> {};

TEST_P(Key, GivesTheValueOrSaysThatThereIsNone) {
    const ProgramRun run = run_edit({"get", "-", GetParam().key}, {.input = water});
    EXPECT_EQ(run.out, GetParam().out);
    EXPECT_EQ(run.status, GetParam().status);
    EXPECT_EQ(run.err.empty(), GetParam().status == 0);
}

INSTANTIATE_TEST_SUITE_P(
    Get, Key,
    testing::Values(Got{"%maxcore", "2000\n", 0}, Got{"%MaxCore", "2000\n", 0}, Got{"!", "hf sto-3g\n", 0},
                    Got{"scf.maxcyc", "50\n", 0}, Got{">xyz.charge", "0\n", 0}, Got{">xyz.multiplicity", "1\n", 0},
                    Got{">xyz.atoms",
                        "O 0.0000000000 0.0000000000 0.1173000000\nH 0.0000000000 0.7572000000 -0.4692000000\n"
                        "H 0.0000000000 -0.7572000000 -0.4692000000\n",
                        0},
                    Got{"%npara", "", 1}, Got{"scf.absent", "", 1}, Got{"opt.maxcyc", "", 1}, Got{"nonsense", "", 2},
                    Got{">xyz.nonsense", "", 2}));

struct Changed {
    std::vector<std::string> options;
    const char* old;
    const char* now;
};

class Change : public testing::TestWithParam<Changed> {};

TEST_P(Change, MakesTheEditsInTheOrderGiven) {
    std::vector<std::string> arguments = {"set", "-"};
    arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
    const ProgramRun run = run_edit(arguments, {.input = water});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, with(water, GetParam().old, GetParam().now));
}

INSTANTIATE_TEST_SUITE_P(
    Set, Change,
    testing::Values(Changed{{"--directive", "maxcore=4000"}, "2000", "4000"},
                    Changed{{"--directive", "maxcore=1", "--directive", "maxcore=7"}, "2000", "7"},
                    Changed{{"--unset-directive", "maxcore"}, "% maxcore 2000\n", ""},
                    Changed{{"--unset-directive", "maxcore", "--directive", "maxcore=3"}, "2000", "3"},
                    Changed{{"--directive", "maxcore=3", "--unset-directive", "maxcore"}, "% maxcore 2000\n", ""},
                    Changed{{"--method", "mp2  def2-svp"}, "hf sto-3g", "mp2 def2-svp"},
                    Changed{{"--remove-token", "sto-3g", "--add-token", "def2-svp"}, "sto-3g", "def2-svp"},
                    Changed{{"--entry", "scf.maxcyc=200"}, "50", "200"},
                    Changed{{"--unset-entry", "scf.maxcyc"}, "  maxcyc 50\n", ""},
                    Changed{{"--entry", "scf.note=b=c"}, "50\n", "50\n  note = b=c\n"},
                    Changed{{"--entry", "scf.end="}, "50\n", "50\n  end =\n"},
                    Changed{{"--remove-section", "scf"}, ">scf\n  maxcyc 50\nend\n\n", ""}));

TEST(Set, GivesCanonicalTextWhenAsked) {
    const auto set = [](const std::string& text, const std::string& entry) {
        return run_edit({"set", "-", "--canonical", "--entry", entry}, {.input = text});
    };
    EXPECT_EQ(set(with(water, "  maxcyc 50", "\tMaxIter=50"), "scf.guess=core").out,
              with(water, "50\n", "50\n  guess core\n"));
    const ProgramRun refused = set(with(water, "0.1173000000", "0.1173 apex"), "scf.guess=core");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("[amesp-inp.dropped_words]"));
    EXPECT_EQ(set(water, "scf.note=a=b").status, 1);
}

class Refusal : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Refusal, LeavesTheFileAsItIs) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    std::vector<std::string> arguments = {"set", "-i", dir / "a.inp"};
    arguments.insert(arguments.end(), GetParam().begin(), GetParam().end());
    const ProgramRun run = run_edit(arguments);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr(": error: "));
    EXPECT_EQ(read_file(dir / "a.inp"), water);
    EXPECT_EQ(dir.entry_count(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Set, Refusal,
                         testing::Values(std::vector<std::string>{"--directive", "maxcore=lots"},
                                         std::vector<std::string>{"--directive", "maxcore=1\n! mp2"},
                                         std::vector<std::string>{"--directive", "a b=c"},
                                         std::vector<std::string>{"--add-token", "a b"},
                                         std::vector<std::string>{"--method", ""},
                                         std::vector<std::string>{"--entry", "notes.a=b"},
                                         std::vector<std::string>{"--entry", "scf.a b=c"},
                                         std::vector<std::string>{"--entry", "scf.x=1\nend"},
                                         std::vector<std::string>{"--remove-section", "xyz"}));

TEST(Set, WritesWhatIsForced) {
    const ProgramRun run = run_edit({"set", "--force", "-", "--directive", "maxcore=lots"}, {.input = water});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, with(water, "2000", "lots"));
}

TEST(Set, DoesNotBlameAnEditForAnErrorThatWasThere) {
    const std::string bad = with(water, "2000", "lots");
    const ProgramRun run = run_edit({"set", "-", "--entry", "scf.maxcyc=9"}, {.input = bad});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, with(bad, "50", "9"));
}

TEST(Set, WritesAnotherFileOrShowsTheDifference) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    EXPECT_EQ(run_edit({"set", dir / "a.inp", "--directive", "maxcore=1", "-o", dir / "b.inp"}).status, 0);
    EXPECT_EQ(read_file(dir / "b.inp"), with(water, "2000", "1"));
    const ProgramRun dry = run_edit({"set", "-i", dir / "a.inp", "--directive", "maxcore=1", "--dry-run"});
    EXPECT_EQ(dry.status, 0);
    EXPECT_THAT(dry.out, HasSubstr("\n-% maxcore 2000\n+% maxcore 1\n"));
    EXPECT_EQ(read_file(dir / "a.inp"), water);
}

TEST(Set, FailsOnWhatCannotBeWritten) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    const std::vector<std::pair<std::string, std::string>> cases = {{dir / "none/b.inp", "No such file or directory"},
                                                                    {dir.path(), "Is a directory"},
                                                                    {"/dev/full", "Not a regular file"}};
    for (const auto& [target, reason] : cases) {
        const ProgramRun run = run_edit({"set", dir / "a.inp", "--directive", "maxcore=1", "-o", target});
        EXPECT_EQ(run.status, 2) << target;
        EXPECT_EQ(run.err, "amesp-inp: cannot write '" + target + "': " + reason + "\n");
    }
    EXPECT_EQ(dir.entry_count(), 1U);
}

class Misuse : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Misuse, EndsWithStatusTwo) {
    const ProgramRun run = run_edit(GetParam(), {.input = water});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err, "");
}

INSTANTIATE_TEST_SUITE_P(Verbs, Misuse,
                         testing::Values(std::vector<std::string>{"set"},
                                         std::vector<std::string>{"set", "-", "--directive", "maxcore"},
                                         std::vector<std::string>{"set", "-", "--entry", "scf=1"},
                                         std::vector<std::string>{"set", "-", "--nonsense"},
                                         std::vector<std::string>{"get", "-"}, std::vector<std::string>{"geom", "-"},
                                         std::vector<std::string>{"geom", "-", "--to-xyz", "-", "--from-xyz", "m.xyz"},
                                         std::vector<std::string>{"fmt", "--schema", "/nonexistent", "-"},
                                         std::vector<std::string>{"get", "/nonexistent", "!"}));

TEST(Set, TakesOneOfInPlaceAndOutput) {
    const TempDir dir;
    write_file(dir / "a.inp", water);
    for (const std::vector<std::string>& verb :
         {std::vector<std::string>{"set", "--unset-directive", "maxcore"}, {"geom", "--from-xyz", dir / "m.xyz"}}) {
        std::vector<std::string> arguments = verb;
        write_file(dir / "m.xyz", "1\n\nHe 0 0 0\n");
        arguments.insert(arguments.end(), {"-i", dir / "a.inp", "-o", dir / "b.inp"});
        EXPECT_EQ(run_edit(arguments).status, 2);
        EXPECT_EQ(dir.entry_count(), 2U);
        EXPECT_EQ(read_file(dir / "a.inp"), water);
    }
}

constexpr auto molecule =
    "2\ncharge=1 multiplicity=2\nO 0.0000000000 0.0000000000 0.0000000000\nH 0.0000000000 0.0000000000 0.9700000000\n";

TEST(Geom, WritesAndReadsPlainXyz) {
    const TempDir dir;
    write_file(dir / "m.xyz", molecule);
    const ProgramRun in = run_edit({"geom", "-", "--from-xyz", dir / "m.xyz"}, {.input = water});
    EXPECT_EQ(in.status, 0) << in.err;
    EXPECT_THAT(in.out, HasSubstr("\n>xyz 1 2\n  O 0.0000000000 0.0000000000 0.0000000000\n"));
    EXPECT_THAT(in.out, Not(HasSubstr("0.7572")));
    const ProgramRun out = run_edit({"geom", "-", "--to-xyz", "-"}, {.input = in.out});
    EXPECT_EQ(out.out, molecule);
}

struct BadXyz {
    const char* text;
    const char* place;
};

TEST(Geom, LocatesTheErrorsOfAnXyzFile) {
    const TempDir dir;
    for (const BadXyz& bad :
         {BadXyz{"two\n\n", ":1:1: error: "}, BadXyz{"", ":1:1: error: "},
          BadXyz{"1\ncharge=x\nH 0 0 0\n", ":2:1: error: "}, BadXyz{"1\n\nH 0 zero 0\n", ":3:5: error: "},
          BadXyz{"1\n\nH 0 0\n", ":3:6: error: "}, BadXyz{"2\n\nH 0 0 0\n", ":3:1: error: "},
          BadXyz{"1\n\nH 0 0 0\n H 0 0 1\n", ":4:2: error: "}, BadXyz{"99999999999999999999\n\n", ":1:1: error: "},
          BadXyz{"1\n\nH 0 0 inf\n", ":3:7: error: "}}) {
        write_file(dir / "m.xyz", bad.text);
        const ProgramRun run = run_edit({"geom", "-", "--from-xyz", dir / "m.xyz"}, {.input = water});
        EXPECT_EQ(run.status, 2) << bad.text;
        EXPECT_THAT(run.err, HasSubstr(dir / "m.xyz" + bad.place)) << bad.text;
    }
}

TEST(Geom, SaysThatThereIsNoGeometry) {
    EXPECT_EQ(run_edit({"geom", "-", "--to-xyz", "-"}, {.input = "! hf\n"}).status, 1);
}

TEST(New, MakesAnInputThatPassesCheck) {
    const TempDir dir;
    write_file(dir / "m.xyz", molecule);
    const ProgramRun run = run_edit({"new", "--geometry", dir / "m.xyz", "--charge", "0", "--multiplicity", "1",
                                     "--method", "hf sto-3g", "--directive", "maxcore=2000", "-o", dir / "m.inp"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(read_file(dir / "m.inp"), testing::StartsWith("% maxcore 2000\n\n! hf sto-3g\n\n>xyz 0 1\n  O "));
    EXPECT_EQ(run_edit({"check", dir / "m.inp"}).status, 0);
}

TEST(New, RefusesWhatIsNotValid) {
    const TempDir dir;
    write_file(dir / "m.xyz", molecule);
    const ProgramRun run =
        run_edit({"new", "--geometry", dir / "m.xyz", "--multiplicity", "0", "--method", "hf", "-o", dir / "m.inp"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("[amesp.invalid_multiplicity]"));
    EXPECT_EQ(dir.entry_count(), 1U);
}

}  // namespace
}  // namespace velk::test
