// Geometries out of and into XYZ files, as a user sees them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/edit/edit_program.hpp"
#include "support/temp_dir.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using Words = std::vector<std::string>;

// Two frames.
const std::string path = "2\nthe reactant\nH 0 0 0\nH 0 0 0.74\n2\ncharge=1 multiplicity=2\nH 0 0 0\nH 0 0 1.06\n";

const std::string third = "! hf\n\n>xyz 0 1\n  He 0 0 0.33333333333333331\n  He 1e-11 -0.0 123456.5\nend\n";

TEST(Geometry, IsPrintedWithoutLoss) {
    const std::string atoms =
        "He 0.0000000000 0.0000000000 0.3333333333333333\nHe 1e-11 -0.0000000000 123456.5000000000\n";
    EXPECT_EQ(run_edit({"get", "-", ">xyz.atoms"}, {.input = third}).out, atoms);
    EXPECT_EQ(run_edit({"geom", "-", "--to-xyz", "-"}, {.input = third}).out, "2\ncharge=0 multiplicity=1\n" + atoms);
}

TEST(Geometry, ComesBackFromItsXyzFileAsItWas) {
    const TempDir dir;
    const std::string xyz = dir / "m.xyz";
    write_file(xyz, run_edit({"geom", "-", "--to-xyz", "-"}, {.input = third}).out);
    EXPECT_EQ(run_edit({"geom", "-", "--from-xyz", xyz}, {.input = third}).out, third);
}

struct FrameCase {
    Words options;
    std::string geometry;
    std::string said;
};

TEST(Frame, IsChosenByNumberOrAsTheLast) {
    const TempDir dir;
    const std::string xyz = dir / "path.xyz";
    write_file(xyz, path);
    const std::string from = " taken from the comment line of '" + xyz + "'";
    const std::string taken = "amesp-inp: charge 1 and multiplicity 2 are" + from + "\n";
    const FrameCase cases[] = {
        {{"--frame", "1"}, ">xyz 0 1\n", ""},
        {{"--frame", "2"}, ">xyz 1 2\n", taken},
        {{"--frame=last"}, ">xyz 1 2\n", taken},
        {{"--frame", "2", "--charge", "0"},
         ">xyz 0 2\n",
         "amesp-inp: multiplicity 2 is" + from + ", but not charge 1: --charge is given\n"},
        {{"--frame", "2", "--multiplicity", "4"},
         ">xyz 1 4\n",
         "amesp-inp: charge 1 is" + from + ", but not multiplicity 2: --multiplicity is given\n"},
        {{"--frame", "2", "--charge", "-1", "--multiplicity", "4"}, ">xyz -1 4\n", ""},
    };
    for (const FrameCase& one : cases) {
        for (const Words& verb : {Words{"geom", "-", "--from-xyz", xyz}, Words{"set", "-", "--geometry", xyz}}) {
            Words words = verb;
            words.insert(words.end(), one.options.begin(), one.options.end());
            const ProgramRun run = run_edit(words, {.input = water});
            EXPECT_EQ(run.status, 0) << run.err;
            EXPECT_THAT(run.out, HasSubstr(one.geometry));
            EXPECT_EQ(run.err, one.said) << verb[0];
        }
    }
    const ProgramRun made = run_edit({"new", "--geometry", xyz, "--method", "hf sto-3g", "--frame", "last"});
    EXPECT_THAT(made.out, HasSubstr(">xyz 1 2\n  H 0.0000000000 0.0000000000 0.0000000000\n  H 0.0000000000 "
                                    "0.0000000000 1.0600000000\nend\n"));
    EXPECT_EQ(made.err, taken);
}

TEST(Frame, HasToBeChosenOfSeveral) {
    const TempDir dir;
    const std::string xyz = dir / "path.xyz";
    write_file(xyz, path);
    const ProgramRun none = run_edit({"geom", "-", "--from-xyz", xyz}, {.input = water});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "amesp-inp: " + xyz +
                            ":5:1: error: the file holds 2 frames, and none of them was chosen (--frame N or --frame "
                            "last chooses one)\n");
    const ProgramRun missing = run_edit({"set", "-", "--geometry", xyz, "--frame", "3"}, {.input = water});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.err, "amesp-inp: " + xyz + ":8:1: error: there is no frame 3: the file holds 2 frames\n");
}

TEST(Frame, IsANumberFromOneOnOrTheLast) {
    for (const char* const frame : {"0", "-1", "1x", "first", "", "LAST", "18446744073709551616"}) {
        const ProgramRun run =
            run_edit({"geom", "-", "--from-xyz", "/nonexistent", "--frame", frame}, {.input = water});
        EXPECT_EQ(run.status, 2) << frame;
        EXPECT_THAT(run.err, Not(HasSubstr("/nonexistent"))) << frame;
        EXPECT_THAT(run.err, HasSubstr("--frame")) << frame;
    }
    EXPECT_THAT(run_edit({"geom", "-", "--to-xyz", "-", "--frame", "1"}, {.input = water}).err,
                HasSubstr("--frame requires --from-xyz"));
}

TEST(CommentLine, GivesBothOfChargeAndMultiplicityOrNeither) {
    const TempDir dir;
    const std::string xyz = dir / "m.xyz";
    write_file(xyz, "1\ncharge=-1\nHe 0 0 0\n");
    const std::string note =
        "amesp-inp: " + xyz +
        ":2:1: note: the comment line gives a charge, but no multiplicity: neither is taken from it\n";
    const ProgramRun kept = run_edit({"geom", "-", "--from-xyz", xyz, "--multiplicity", "2"}, {.input = water});
    EXPECT_EQ(kept.status, 0);
    EXPECT_THAT(kept.out, HasSubstr(">xyz 0 2\n"));
    EXPECT_EQ(kept.err, note);
    const ProgramRun unknown = run_edit({"new", "--geometry", xyz, "--method", "hf", "--multiplicity", "2"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, note + "amesp-inp: the charge and the multiplicity of '" + xyz +
                               "' are not known: give --charge and --multiplicity\n");
}

TEST(XyzFile, IsReadOnceForManyInputs) {
    const TempDir dir;
    const std::string xyz = dir / "m.xyz";
    write_file(dir / "a.inp", water);
    write_file(dir / "b.inp", water);
    write_file(xyz, "1\ncharge=1 spin=2\nHe 0 0 0\n");
    const ProgramRun run = run_edit({"set", "-i", dir / "a.inp", dir / "b.inp", "--geometry", xyz});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "amesp-inp: charge 1 and multiplicity 2 are taken from the comment line of '" + xyz + "'\n");
    for (const char* const name : {"a.inp", "b.inp"}) {
        EXPECT_THAT(read_file(dir / name), HasSubstr(">xyz 1 2\n  He "));
    }
    const ProgramRun piped =
        run_edit({"set", "-i", dir / "a.inp", dir / "b.inp", "--geometry", "-"}, {.input = "1\n\nLi 0 0 0\n"});
    EXPECT_EQ(piped.status, 0) << piped.err;
    EXPECT_THAT(read_file(dir / "b.inp"), HasSubstr("\n  Li "));
}

TEST(Geometry, LeavesOutTheWordsOfTheOldHeaderWhenAsked) {
    const TempDir dir;
    write_file(dir / "m.xyz", "1\n\nNe 0 0 1\n");
    const std::string in_bohr = "! hf sto-3g\n>xyz 0 1 bohr x\n  He 0 0 0\nend\n";
    for (Words words : {Words{"geom", "-", "--from-xyz"}, Words{"set", "-", "--geometry"}}) {
        words.push_back(dir / "m.xyz");
        const auto run = [&](const Words& more) {
            Words all = words;
            all.insert(all.end(), more.begin(), more.end());
            return run_edit(all, {.input = in_bohr});
        };
        const ProgramRun refused = run({});
        EXPECT_EQ(refused.status, 1);
        EXPECT_THAT(refused.err,
                    testing::EndsWith("amesp-inp: '<stdin>' is left as it is (--force writes it all the same); "
                                      "--drop-words leaves the words of the old header out\n"));
        for (const Words& drop : {Words{"--drop-words"}, Words{"--canonical"}, Words{"--canonical", "--drop-words"}}) {
            const ProgramRun dropped = run(drop);
            EXPECT_EQ(dropped.status, 0);
            EXPECT_THAT(dropped.out, HasSubstr(">xyz 0 1\n  Ne 0"));
            EXPECT_THAT(dropped.err,
                        testing::StartsWith("<stdin>:2:1: warning: The words 'bohr x' of the header of section "
                                            "'>xyz' go with it. [amesp.dropped_words]\n"));
        }
        EXPECT_THAT(run({"--force"}).out, HasSubstr(">xyz 0 1 bohr x\n  Ne 0"));
    }
    EXPECT_EQ(run_edit({"set", "-", "--charge", "1", "--drop-words"}, {.input = in_bohr}).status, 2);
}

TEST(Geometry, IsPreviewedAsTheChangeOfItsXyzFile) {
    const TempDir dir;
    write_file(dir / "a.inp", third);
    const auto preview = [&] {
        return run_edit({"geom", "a.inp", "--to-xyz", "m.xyz", "--diff"}, {.directory = dir.path()});
    };
    EXPECT_EQ(preview().status, 0);
    EXPECT_THAT(preview().out, testing::StartsWith("--- a/m.xyz\t\n+++ b/m.xyz\t\n@@ -0,0 +1,4 @@\n+2\n"));
    EXPECT_EQ(dir.entry_count(), 1U);
    write_file(dir / "m.xyz", "2\nold\n");
    EXPECT_THAT(preview().out, HasSubstr(" 2\n-old\n+charge=0 multiplicity=1\n"));
    EXPECT_EQ(read_file(dir / "m.xyz"), "2\nold\n");
    const ProgramRun nowhere = run_edit({"geom", "-", "--to-xyz", "-", "--diff"}, {.input = third});
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_THAT(nowhere.err,
                testing::StartsWith("amesp-inp geom: --diff shows the change of a file: --to-xyz has to name one\n"));
}

TEST(Geometry, SaysNothingOfTheCommentLineWhenQuiet) {
    const TempDir dir;
    const std::string taken = dir / "taken.xyz";
    const std::string noted = dir / "noted.xyz";
    write_file(taken, "1\ncharge=0 multiplicity=1\nHe 0 0 0\n");
    write_file(noted, "1\ncharge=0\nHe 0 0 0\n");
    for (const std::string& xyz : {taken, noted}) {
        for (Words words : {Words{"geom", "-", "--from-xyz", xyz}, Words{"set", "-", "--geometry", xyz},
                            Words{"new", "--method", "hf", "--geometry", xyz, "--charge", "0"}}) {
            if (words[0] == "new" && xyz == noted) {
                words.insert(words.end(), {"--multiplicity", "1"});
            }
            const ProgramRun loud = run_edit(words, {.input = water});
            EXPECT_NE(loud.err, "") << testing::PrintToString(words);
            words.emplace_back("-q");
            const ProgramRun quiet = run_edit(words, {.input = water});
            EXPECT_EQ(quiet.err, "") << testing::PrintToString(words);
            EXPECT_EQ(quiet.out, loud.out);
        }
    }
}

}  // namespace
}  // namespace velk::test
