// What set and geom leave alone in a file that a person wrote: everything that was not asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

constexpr auto annotated =
    "// the thesis, table 3\r\n"
    "%  MEM   2000\n"
    "\n\n"
    "!  B3-LYP   def2-SVP\topt\n"
    "! d3bj\n"
    "a loose line\n"
    ">SCF  \n"
    "  # tight: noisy otherwise\n"
    "  MaxIter = 128   \n"
    "  odd thing here\n"
    "End\n"
    "\t>XYZ 0 1\r\n"
    "  O   0.0   0.0       0.1173    the apex\n"
    "; between\n"
    "  H   0.0   0.7572   -4.692d-1\n"
    "  H   0.0  -0.7572   -0.46920000000001\n"
    "end\n"
    "# last";

struct InPlaceEdit {
    std::vector<std::string> options;
    std::string changes;  // as `diff` prints them, without its markers of place
};

// The lines that differ, as another program sees them.
std::string differing_lines(const TempDir& dir) {
    EXPECT_NE(std::system(("diff --text '" + (dir / "old") + "' '" + (dir / "a.inp") + "' | grep -a '^[<>\\\\]' >'" +
                           (dir / "changes") + "'")
                              .c_str()),
              -1);
    return read_file(dir / "changes");
}

class InPlace : public testing::TestWithParam<InPlaceEdit> {};

TEST_P(InPlace, ChangesOnlyWhatWasAskedFor) {
    const TempDir dir;
    write_file(dir / "old", annotated);
    write_file(dir / "a.inp", annotated);
    write_file(dir / "same.xyz", "3\n\nO 0 0 0.1173\nH 0 0.7572 -0.4692\nH 0 -0.7572 -0.46920000000001\n");
    write_file(dir / "swapped.xyz", "3\n\nH 0 0.7572 -0.4692\nO 0 0 0.1173\nH 0 -0.7572 -0.46920000000001\n");
    write_file(dir / "moved.xyz", "3\n\nO 0 0 0.1173\nH 0 0.7572 -0.4692\nH 0 -0.75 -0.46920000000001\n");
    std::vector<std::string> arguments = GetParam().options;
    arguments.insert(arguments.begin() + 1, {"-i", "a.inp"});
    const ProgramRun run = run_edit(arguments, {.directory = dir.path()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(differing_lines(dir), GetParam().changes);
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, InPlace,
    testing::Values(
        InPlaceEdit{{"set"}, ""}, InPlaceEdit{{"set", "--directive", "maxcore=2000"}, ""},
        InPlaceEdit{{"set", "--directive", "maxcore=4000"}, "< %  MEM   2000\n> %  MEM   4000\n"},
        InPlaceEdit{{"set", "--directive", "nprocs=4"}, "> %  nprocs 4\n"},
        InPlaceEdit{{"set", "--unset-directive", "maxcore"}, "< %  MEM   2000\n"},
        InPlaceEdit{{"set", "--remove-token", "d3bj"}, "< ! d3bj\n"},
        InPlaceEdit{{"set", "--add-token", "freq"}, "< ! d3bj\n> ! d3bj freq\n"},
        InPlaceEdit{{"set", "--method", "b3lyp def2svp opt d3bj"}, ""},
        InPlaceEdit{{"set", "--entry", "scf.maxcyc=7"}, "<   MaxIter = 128   \n>   MaxIter = 7   \n"},
        InPlaceEdit{{"set", "--unset-entry", "scf.odd"}, "<   odd thing here\n"},
        InPlaceEdit{{"set", "--remove-section", "scf"},
                    "< >SCF  \n<   # tight: noisy otherwise\n<   MaxIter = 128   \n<   odd thing here\n< End\n"},
        InPlaceEdit{{"geom", "--from-xyz", "same.xyz"}, ""}, InPlaceEdit{{"set", "--geometry", "same.xyz"}, ""},
        InPlaceEdit{{"geom", "--from-xyz", "moved.xyz"},
                    "<   H   0.0  -0.7572   -0.46920000000001\n>   H   0.0  -0.7500   -0.46920000000001\n"},
        InPlaceEdit{{"geom", "--from-xyz", "swapped.xyz"},
                    "<   O   0.0   0.0       0.1173    the apex\n>   O   0.0   0.0       0.1173    the apex\n"},
        InPlaceEdit{{"geom", "--from-xyz", "same.xyz", "--charge", "1", "--multiplicity", "2"},
                    "< \t>XYZ 0 1\r\n> \t>XYZ 1 2\r\n"}));

TEST(InPlace, LeavesTheFileAloneWhenAnEditCannotBeWritten) {
    for (const char* const force : {"--force", "--directive=maxcore=4000"}) {
        const TempDir dir;
        write_file(dir / "a.inp", annotated);
        const ProgramRun run = run_edit({"set", "-i", dir / "a.inp", "--add-token", "two words", force});
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.err, HasSubstr("a.inp: error: Method-line token 'two words' cannot be written"));
        EXPECT_THAT(run.err, HasSubstr("is left as it is\n"));
        EXPECT_EQ(read_file(dir / "a.inp"), annotated);
    }
}

TEST(InPlace, RefusesAChargeThatGoesNowhere) {
    for (const char* const option : {"--charge", "--multiplicity"}) {
        const ProgramRun run = run_edit({"geom", "-", "--to-xyz", "-", option, "2"}, {.input = annotated});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(std::string(option) + " requires --from-xyz"));
    }
}

TEST(InPlace, ReportsOnlyErrorsThatTheTextBeforeDidNotHave) {
    const std::string bad = "% nprocs many\n! hf sto-3g\n>xyz 0 1\nHe 0 0 0\nend\n";
    EXPECT_EQ(run_edit({"set", "-", "--directive", "maxcore=1"}, {.input = bad}).status, 0);
    const ProgramRun run = run_edit({"set", "-", "--directive", "maxcore=x"}, {.input = bad});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("directive '% maxcore' expects integer, got 'x'."));
    EXPECT_THAT(run.err, testing::Not(HasSubstr("nprocs")));
}

TEST(InPlace, MakesAnEditOnceInAFileThatIsNamedTwice) {
    const TempDir dir;
    write_file(dir / "a.inp", annotated);
    const ProgramRun run =
        run_edit({"set", "-i", ".", "a.inp", "./a.inp", ".//a.inp", "--add-token", "freq"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(read_file(dir / "a.inp"), HasSubstr("! d3bj freq\n"));
}

TEST(InPlace, TakesTwoFilesBehindALinkForTwo) {
    const TempDir dir;
    ::mkdir((dir / "b").c_str(), 0700);
    ::mkdir((dir / "b/c").c_str(), 0700);
    ASSERT_EQ(::symlink("b/c", (dir / "link").c_str()), 0);
    write_file(dir / "a.inp", annotated);
    write_file(dir / "b/a.inp", annotated);
    const ProgramRun run =
        run_edit({"set", "-i", "a.inp", "link/../a.inp", "--add-token", "freq"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(read_file(dir / "a.inp"), HasSubstr("! d3bj freq\n"));
    EXPECT_THAT(read_file(dir / "b/a.inp"), HasSubstr("! d3bj freq\n"));
}

TEST(InPlace, PlacesANewErrorInTheTextThatWouldBeWritten) {
    const ProgramRun run = run_edit({"set", "-", "--directive", "nprocs=many"}, {.input = annotated});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("<stdin>:3:11: error: directive '% nprocs' expects integer, got 'many'."));
    EXPECT_THAT(run.err, HasSubstr("    3 | %  nprocs many\n"));
}

}  // namespace
}  // namespace velk::test
