// The verbs that format, query, change and make inputs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";
const std::string canonical =
    "% maxcore 2000\n\n! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";
const std::string loose = "%MEM 2000\n! HF  sto-3g\n>XYZ 0 1\nHe 0 0 0\nend\n";

ProgramRun run(std::vector<std::string> arguments, const RunOptions& options = {}) {
    arguments.insert(arguments.begin() + 1, {"--schema", starter});
    return run_program(arguments, options);
}

ProgramRun format_text(const std::string& text, std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"fmt", "-"});
    return run(options, {.input = text});
}

TEST(Fmt, PrintsTheCanonicalText) {
    const ProgramRun done = format_text(loose);
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.out, canonical);
    EXPECT_EQ(format_text(canonical).out, canonical);
    EXPECT_EQ(format_text(canonical).err, "");
}

TEST(Fmt, RewritesInPlaceOnlyWhatChanges) {
    const TempDir dir;
    write_file(dir / "a.inp", loose);
    write_file(dir / "b.inp", canonical);
    ::chmod((dir / "a.inp").c_str(), 0640);
    const auto untouched = std::filesystem::last_write_time(dir / "b.inp");
    EXPECT_EQ(run({"fmt", "-i", dir.path()}).status, 0);
    EXPECT_EQ(read_file(dir / "a.inp"), canonical);
    EXPECT_EQ(std::filesystem::last_write_time(dir / "b.inp"), untouched);
    EXPECT_EQ(dir.entry_count(), 2U);
}

TEST(Fmt, ListsTheFilesThatWouldChange) {
    const TempDir dir;
    write_file(dir / "a.inp", loose);
    write_file(dir / "b.inp", canonical);
    const ProgramRun done = run({"fmt", "--check", dir.path()});
    EXPECT_EQ(done.status, 1);
    EXPECT_EQ(done.out, (dir / "a.inp") + "\n");
    EXPECT_EQ(read_file(dir / "a.inp"), loose);
    EXPECT_EQ(run({"fmt", "--check", dir / "b.inp"}).status, 0);
}

TEST(Fmt, ShowsADifferenceThatPatchTakes) {
    for (const std::string& text : {loose, loose.substr(0, loose.size() - 1), std::string("% mem 1"),
                                    std::string("# a\n\n\n\n\n\n\n\n\n! hf\n% mem 1\n")}) {
        const TempDir dir;
        write_file(dir / "a.inp", text);
        const ProgramRun done = run({"fmt", "--force", "--diff", "a.inp"}, {.directory = dir.path()});
        EXPECT_EQ(done.status, 0);
        write_file(dir / "change", done.out);
        EXPECT_EQ(std::system(("cd '" + dir.path() + "' && patch -s -p1 < change").c_str()), 0) << done.out;
        EXPECT_EQ(read_file(dir / "a.inp"), format_text(text, {"--force"}).out);
    }
}

struct ChangeCase {
    std::string text;
    std::string finding;
    bool refused;
};

TEST(Fmt, NeverLosesOrMovesContentWithoutSayingSo) {
    const std::string geometry = ">xyz 0 1\n  He 0 0 0\nend\n";
    const ChangeCase cases[] = {
        {"! hf\n>xyz 0 1\n  He 0 0 0 word\nend\n", ":3:3: error: Words after the coordinates", true},
        {"! hf\n>xyz 0 1 word\n  He 0 0 0\nend\n", ":2:1: error: Words after charge and multiplicity", true},
        {"! hf\n>scf\n  my key = 5\nend\n" + geometry, ":3:3: error: The canonical text of this would be read", true},
        {"! hf\n>scf\n  note = a = b\nend\n" + geometry, ":3:3: error: The canonical text of this would be read", true},
        {"! hf\n>scf\n  end =\nend\n" + geometry, ": error: The canonical text of this would be read", true},
        {"% maxcore\vx 5\n! hf\n" + geometry, ":1:1: error: Words between a name and its value", true},
        {"! hf\n>scf\n  guess\rcore\nend\n" + geometry, ":3:3: error: Words between a name and its value", true},
        {"! hf\n>xyz 0 1\n  He 0 0 0.12345678901\nend\n", ":3:3: warning: Coordinates would be rounded", false},
        {"! hf\n>scf\n # c\n  conv 1\nend\n" + geometry, ":3:2: warning: This line would be moved to the end of its",
         false},
        {"! hf\n# c\n" + geometry, ":2:1: warning: This line would be moved to the end of the file.", false},
        {"! hf\nloose\n" + geometry, ":2:1: error: This line is not read as part of the input.", true},
        {"# a\n\n! hf\n" + geometry, ":2:1: warning: Blank lines would be laid out anew.", false},
        {"! hf\n" + geometry + "% mem 5\n", ":5:1: warning: This directive would be moved to the front.", false},
        {geometry + "! hf\n", ":4:3: warning: The method line would be moved above the sections.", false},
        {"! hf\n! sto-3g\n" + geometry, ":2:1: warning: This method line would be joined", false},
        {"! hf\n%\n" + geometry, ":2:1: error: This line holds a marker alone", true},
        {"! hf\n>xyz 0 1\n  He 0 0 0\n", ":2:1: error: The missing 'end' of this section would be added.", true},
    };
    for (const ChangeCase& c : cases) {
        const ProgramRun done = format_text(c.text);
        EXPECT_THAT(done.err, HasSubstr(c.finding)) << c.text;
        EXPECT_EQ(done.status, c.refused ? 1 : 0) << c.text;
        EXPECT_EQ(done.out.empty(), c.refused) << c.text;
        EXPECT_EQ(format_text(c.text, {"--force"}).status, 0) << c.text;
    }
}

TEST(Fmt, GivesTheSameTwiceForACommentBelowADroppedMarker) {
    const ProgramRun once = format_text("%\n; note\n", {"--force"});
    EXPECT_EQ(once.out, "; note\n");
    EXPECT_EQ(format_text(once.out).err, "");
}

TEST(Fmt, GivesTheSameTwiceForWhatItAccepts) {
    std::mt19937 random(60);
    const std::string pieces[] = {"% mem 5", "! hf", ">xyz 0 1", ">scf",    "end", "\n",  "\n",   "\n", " ",
                                  "conv",    "=",    " 1",       "H 0 0 1", "# c", "odd", "\xff", "0.5"};
    int accepted = 0;
    for (int i = 0; i < 150; ++i) {
        std::string text;
        for (std::size_t n = random() % 30; n > 0; --n) {
            text += pieces[random() % std::size(pieces)];
        }
        const ProgramRun once = format_text(text);
        if (once.status == 0) {
            ++accepted;
            EXPECT_EQ(format_text(once.out).out, once.out) << text;
        }
    }
    EXPECT_GT(accepted, 20);
}

TEST(Fmt, SaysOfAFileThatCannotBeReadOrPrinted) {
    const TempDir dir;
    write_file(dir / "b.inp", loose);
    EXPECT_EQ(run({"fmt", "--diff", dir / "a.inp", dir / "b.inp"}).status, 2);
    EXPECT_EQ(run({"fmt", dir / "b.inp"}, {.out_path = "/dev/full"}).status, 2);
}

TEST(Get, PrintsValuesForScripts) {
    const std::string text = "% MEM 2000\n! HF sto-3g\n>xyz -1 2\nHe 0 0 0.5\nend\n>scf\nMaxIter = 7\nnote\nend\n";
    const auto get = [&](std::vector<std::string> keys) {
        keys.insert(keys.begin(), {"get", "-"});
        return run(keys, {.input = text});
    };
    EXPECT_EQ(get({"%maxcore", "%mem", "!", "scf.maxcyc", "SCF.maxiter", ">xyz.charge", ">xyz.multiplicity"}).out,
              "2000\n2000\nHF sto-3g\n7\n7\n-1\n2\n");
    EXPECT_EQ(get({">xyz.atoms"}).out, "He 0.0000000000 0.0000000000 0.5000000000\n");
    for (const char* const absent : {"%nprocs", "scf.conv", "opt.maxcyc", ">zmat.charge"}) {
        const ProgramRun done = get({absent, "!"});
        EXPECT_EQ(done.status, 1);
        EXPECT_EQ(done.out, "HF sto-3g\n");
        EXPECT_EQ(done.err, std::string("amesp-inp: '<stdin>' has no ") + absent + "\n");
    }
    for (const char* const wrong : {"nonsense", "scf.", ">xyz.size", "%", ""}) {
        EXPECT_EQ(get({wrong}).status, 2) << wrong;
    }
}

TEST(Set, AppliesEditsInTheOrderGiven) {
    const auto set = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"set", "-"});
        return run(options, {.input = canonical});
    };
    EXPECT_THAT(set({"--directive", "mem=5"}).out, StartsWith("% maxcore 5\n"));
    EXPECT_THAT(set({"--directive", "maxcore=5", "--unset-directive", "mem", "--directive", "nprocs=2"}).out,
                StartsWith("% nprocs 2\n\n! hf"));
    EXPECT_THAT(set({"--unset-directive", "mem", "--directive", "maxcore=5"}).out, StartsWith("% maxcore 5\n"));
    EXPECT_THAT(set({"--method", "b3lyp  def2-svp", "--add-token", "opt", "--remove-token", "def2svp"}).out,
                HasSubstr("\n! b3lyp opt\n"));
    EXPECT_THAT(set({"--entry", "scf.maxiter=7", "--entry", "scf.conv=1e-6", "--unset-entry", "scf.conv"}).out,
                HasSubstr(">scf\n  maxcyc 7\nend\n"));
    EXPECT_THAT(set({"--entry", "scf.conv=1e-6", "--remove-section", "scf"}).out, Not(HasSubstr("scf")));
    EXPECT_EQ(set({}).out, canonical);
}

TEST(Set, RefusesWhatMakesTheInputInvalidOrCannotBeWritten) {
    struct EditCase {
        std::vector<std::string> edit;
        bool can_be_forced;
    };
    const EditCase cases[] = {
        {{"--directive", "maxcore=lots"}, true}, {{"--method", ""}, true},
        {{"--remove-section", "xyz"}, true},     {{"--entry", "scf.maxcyc=0"}, true},
        {{"--directive", "odd=a\nb"}, false},    {{"--entry", "scf.note=a\nb"}, false},
        {{"--entry", "zmat.key=v"}, false},      {{"--entry", "scf.a b=c"}, false},
        {{"--add-token", "two words"}, false},   {{"--directive", "two words=1"}, false},
    };
    for (const auto& [edit, can_be_forced] : cases) {
        const TempDir dir;
        write_file(dir / "a.inp", canonical);
        std::vector<std::string> arguments = {"set", "-i", dir / "a.inp"};
        arguments.insert(arguments.end(), edit.begin(), edit.end());
        const ProgramRun done = run(arguments);
        EXPECT_EQ(done.status, 1) << edit[1];
        EXPECT_THAT(done.err, HasSubstr("is left as it is")) << edit[1];
        EXPECT_EQ(read_file(dir / "a.inp"), canonical);
        arguments.emplace_back("--force");
        EXPECT_EQ(run(arguments).status, can_be_forced ? 0 : 1) << edit[1];
        EXPECT_EQ(read_file(dir / "a.inp") != canonical, can_be_forced) << edit[1];
    }
}

TEST(Set, LetsErrorsStayThatWereThereBefore) {
    const ProgramRun done = run({"set", "-", "--directive", "nprocs=2"}, {.input = "% maxcore lots\n"});
    EXPECT_EQ(done.status, 0) << done.err;
}

TEST(Set, TellsWrongArgumentsFromFindings) {
    const std::vector<std::string> wrong[] = {{"--directive", "x"},     {"--entry", "scf=1"},  {"--entry", "scf.x"},
                                              {"--unset-entry", "scf"}, {"--directive", "=1"}, {"--nonsense"}};
    for (std::vector<std::string> arguments : wrong) {
        arguments.insert(arguments.begin(), {"set", "-"});
        EXPECT_EQ(run(arguments, {.input = canonical}).status, 2);
    }
}

TEST(Set, WritesWhereItIsTold) {
    const TempDir dir;
    write_file(dir / "a.inp", canonical);
    EXPECT_EQ(run({"set", dir / "a.inp", "--directive", "mem=5", "-o", dir / "b.inp"}).status, 0);
    EXPECT_THAT(read_file(dir / "b.inp"), StartsWith("% maxcore 5\n"));
    EXPECT_EQ(read_file(dir / "a.inp"), canonical);
    EXPECT_THAT(run({"set", dir / "a.inp", "--directive", "mem=5", "--dry-run"}).out,
                HasSubstr("-% maxcore 2000\n+% maxcore 5\n"));
    const ProgramRun failed = run({"set", dir / "a.inp", "--directive", "mem=5", "-o", dir / "missing/b.inp"});
    EXPECT_EQ(failed.status, 2);
    EXPECT_EQ(failed.err, "amesp-inp: cannot write '" + (dir / "missing/b.inp") + "': No such file or directory\n");
    EXPECT_EQ(dir.entry_count(), 2U);
}

TEST(Geom, TakesAGeometryOutAndPutsOneIn) {
    const TempDir dir;
    write_file(dir / "a.inp", canonical);
    const std::string xyz = "1\ncharge=0 multiplicity=1\nHe 0.0000000000 0.0000000000 0.0000000000\n";
    EXPECT_EQ(run({"geom", dir / "a.inp", "--to-xyz", "-"}).out, xyz);
    EXPECT_EQ(run({"geom", dir / "a.inp", "--to-xyz", dir / "a.xyz"}).status, 0);
    EXPECT_EQ(read_file(dir / "a.xyz"), xyz);
    write_file(dir / "b.xyz", "2\nx charge=-1 spin=1 y\nH 0 0 0 extra\nH 0 0 7.4d-1\n\n");
    EXPECT_EQ(run({"geom", "-i", dir / "a.inp", "--from-xyz", dir / "b.xyz", "--multiplicity", "2"}).status, 0);
    EXPECT_THAT(read_file(dir / "a.inp"),
                HasSubstr(">xyz -1 2\n  H  0.0000000000 0.0000000000 0.0000000000\n  H  0.0000000000 0.0000000000 "
                          "0.7400000000\nend\n"));
    EXPECT_EQ(run({"geom", "-", "--to-xyz", "-"}, {.input = "! hf\n"}).status, 1);
    EXPECT_EQ(run({"geom", dir / "a.inp"}).status, 2);
}

TEST(Geom, KeepsTheWordsOfTheHeaderAndRefusesThoseOfAnotherUnit) {
    const TempDir dir;
    write_file(dir / "new.xyz", "1\n\nNe 0 0 0.5\n");
    const auto put_under = [&](const std::string& word, std::vector<std::string> options) {
        write_file(dir / "a.inp", "! hf sto-3g\n>xyz 0 1 " + word + "\n  He 0 0 0\nend\n");
        options.insert(options.begin(), {"geom", dir / "a.inp", "--from-xyz", dir / "new.xyz"});
        return run(options);
    };
    EXPECT_THAT(put_under("angstrom", {}).out, HasSubstr(">xyz 0 1 angstrom\n  Ne 0 0 0.5000000000\nend\n"));
    const ProgramRun refused = put_under("bohr", {});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr("error: The header of section '>xyz' keeps the word 'bohr'"));
    EXPECT_THAT(refused.err, HasSubstr("(--force writes it all the same)"));
    const ProgramRun forced = put_under("bohr", {"--force"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.out, HasSubstr(">xyz 0 1 bohr\n  Ne 0"));
}

TEST(Set, SaysThatARemarkGoesWithItsValueAndWritesAllTheSame) {
    const TempDir dir;
    write_file(dir / "a.inp", "% maxcore 2000 # MB\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n");
    const ProgramRun set = run({"set", dir / "a.inp", "--directive", "maxcore=3000"});
    EXPECT_EQ(set.status, 0);
    EXPECT_THAT(set.out, testing::StartsWith("% maxcore 3000\n"));
    EXPECT_THAT(set.err, HasSubstr(":1:1: warning: The remark '# MB' was part of the value and goes with it."));
}

struct XyzCase {
    std::string text;
    std::string error;
};

TEST(Geom, SaysWhereAnXyzFileIsWrong) {
    const XyzCase cases[] = {{"", ":1:1: error: expected the number of atoms"},
                             {"two\n\n", ":1:1: error: expected the number of atoms"},
                             {"-1\n\n", ":1:1: error: expected the number of atoms"},
                             {"2\n\nH 0 0 0\n", ":3:1: error: the file ends after 1 of 2 atoms"},
                             {"99999999999\n\nH 0 0 0\n", ":3:1: error: the file ends after 1 of 99999999999 atoms"},
                             {"1\n\nH 0 0\n", ":3:6: error: expected a coordinate"},
                             {"1\n\nH 0 x 0\n", ":3:5: error: expected a coordinate"},
                             {"1\n\nH 0 nan 0\n", ":3:5: error: expected a coordinate"},
                             {"1\n\n\n", ":3:1: error: expected an atom"},
                             {"1\ncharge=x\nH 0 0 0\n", ":2:1: error: expected an integer after 'charge='"},
                             {"1\n\nH 0 0 0\n1\n\nH 0 0 0\n", ":4:1: error: the file holds 2 frames"}};
    for (const XyzCase& c : cases) {
        const TempDir dir;
        write_file(dir / "m.xyz", c.text);
        const ProgramRun done = run({"geom", "-", "--from-xyz", dir / "m.xyz"}, {.input = canonical});
        EXPECT_EQ(done.status, 2) << c.text;
        EXPECT_THAT(done.err, HasSubstr((dir / "m.xyz") + c.error)) << c.text;
    }
}

TEST(New, MakesAnInputThatPassesCheck) {
    const TempDir dir;
    write_file(dir / "m.xyz", "1\n\nHe 0 0 0\n");
    const ProgramRun made = run({"new", "--geometry", dir / "m.xyz", "--charge", "0", "--multiplicity", "1", "--method",
                                 "hf sto-3g", "--directive", "mem=5", "--entry", "scf.maxcyc=9", "-o", dir / "a.inp"});
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(run({"check", "--fail-on", "warning", dir / "a.inp"}).status, 0);
    const ProgramRun refused =
        run({"new", "--geometry", dir / "m.xyz", "--charge", "0", "--multiplicity", "0", "--method", "hf"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(run({"new", "--geometry", dir / "m.xyz", "--method", "hf"}).status, 2);
    EXPECT_EQ(run({"new", "--method", "hf"}).status, 2);
    EXPECT_EQ(run({"new", "--geometry", dir / "m.xyz"}).status, 2);
}

TEST(VerbPages, ShowTheHelpOfTheirVerb) {
    for (const char* const verb : {"check", "explain", "show", "fmt", "get", "set", "geom", "new", "help"}) {
        const std::string page = read_file(std::string(VELK_SOURCE_DIRECTORY "/docs/verbs/") + verb + ".md");
        EXPECT_THAT(page, HasSubstr("```text\n" + run_program({verb, "--help"}).out + "```\n")) << verb;
        EXPECT_THAT(run_program({verb, "--help"}).out, StartsWith(std::string("Examples:\n  amesp-inp ") + verb));
    }
}

}  // namespace
}  // namespace velk::test
