// Keys, and what amesp-inp get prints by them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

constexpr auto job =
    "% MaxCore 2000\n%note a,\"b\"\n! uHF sto-3g Opt odd HF opt\n>SCF\n  # tight\n  MaxIter = 50\n\nEnd\n"
    ">xyz -1 2 angstrom\n  He 0 0 0.5\nend\n>notes\n one.two\n two\nend\n";

ProgramRun get(std::vector<std::string> arguments, const std::string& text = job) {
    arguments.insert(arguments.begin(), {"get", "-"});
    return run_edit(arguments, {.input = text});
}

struct Spelling {
    std::vector<const char*> keys;
    const char* out;
};

class Spellings : public testing::TestWithParam<Spelling> {};

TEST_P(Spellings, MeanTheSame) {
    for (const char* const key : GetParam().keys) {
        const ProgramRun run = get({key});
        EXPECT_EQ(run.out, GetParam().out) << key;
        EXPECT_EQ(run.status, 0) << key << ": " << run.err;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Key, Spellings,
    testing::Values(Spelling{{"%maxcore", "maxcore", "mem", "%MEM", " % maxcore "}, "2000\n"},
                    Spelling{{"%note", "note"}, "a,\"b\"\n"}, Spelling{{"!", " ! "}, "uHF sto-3g Opt odd HF opt\n"},
                    Spelling{{"!method", "method", "! Method"}, "uHF HF\n"}, Spelling{{"!basis", "basis"}, "sto-3g\n"},
                    Spelling{{"!other", "other", "odd", "!odd"}, "odd\n"},
                    Spelling{{"!opt", "!optimize", "optimize", "!task", "task"}, "Opt opt\n"},
                    Spelling{{"!hf", "hf", "hartree-fock", "!scf"}, "HF\n"}, Spelling{{"uhf", "!UHF"}, "uHF\n"},
                    Spelling{{">scf.maxcyc", "scf.maxcyc", "SCF.MaxIter", "> scf . maxcyc"}, "50\n"},
                    Spelling{{">scf", "scf", "> SCF"}, ">SCF\n  # tight\n  MaxIter = 50\n\nEnd\n"},
                    Spelling{{">scf.raw", "scf.raw"}, "  # tight\n\n"},
                    Spelling{{">xyz", "xyz"}, ">xyz -1 2 angstrom\n  He 0 0 0.5\nend\n"},
                    Spelling{{">xyz.charge", "xyz.charge", "XYZ.Charge"}, "-1\n"},
                    Spelling{{">xyz.multiplicity", "xyz.multiplicity"}, "2\n"},
                    Spelling{{">notes", "notes"}, ">notes\n one.two\n two\nend\n"},
                    Spelling{{">notes.raw", "notes.raw"}, " one.two\n two\n"}));

struct Absent {
    const char* key;
    int status;
    const char* message;
};

class AbsentKey : public testing::TestWithParam<Absent> {};

TEST_P(AbsentKey, IsToldFromOneThatIsNoKey) {
    const ProgramRun run = get({GetParam().key});
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.status, GetParam().status);
    EXPECT_THAT(run.err, HasSubstr(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Key, AbsentKey,
    testing::Values(Absent{"nprocs", 1, "amesp-inp: '<stdin>' has no nprocs\n"}, Absent{"%odd", 1, "has no %odd"},
                    Absent{"!mp2", 1, "has no !mp2"}, Absent{"!dispersion", 1, "has no !dispersion"},
                    Absent{">opt", 1, "has no >opt"}, Absent{">opt.conv", 1, "has no >opt.conv"},
                    Absent{"scf.charge", 1, "has no scf.charge"}, Absent{"xyz.raw", 1, "has no xyz.raw"},
                    Absent{"zmat.atoms", 1, "has no zmat.atoms"}, Absent{"nowhere.x", 1, "has no nowhere.x"},
                    Absent{">nowhere.x", 1, "has no >nowhere.x"},
                    Absent{"nonsense", 2, "'nonsense' is no key: neither the schema nor '<stdin>' has"},
                    Absent{"xyz.nonsense", 2, "has no entries"}, Absent{">zmat.a", 2, "has no entries"},
                    Absent{"one.", 2, "no key"}, Absent{".two", 2, "no key"}, Absent{">scf.", 2, "no key"},
                    Absent{"%", 2, "'%' is no key"}, Absent{">", 2, "'>' is no key"}, Absent{"", 2, "'' is no key"},
                    Absent{"opt", 2, "amesp-inp: 'opt' may mean several things: write '!opt' or '>opt'\n"}));

TEST(Key, OfSeveralKindsInTheFileAloneHasToCarryItsMark) {
    const std::string text = "%odd 1\n! odd\n>odd\nend\n";
    EXPECT_EQ(get({"%odd", "!odd", ">odd"}, text).out, "1\nodd\n>odd\nend\n");
    const ProgramRun run = get({"!", "odd"}, text);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("write '%odd' or '!odd' or '>odd'\n"));
}

TEST(Key, IsAnEntryWhereTheSchemaHasOneOfThatName) {
    const TempDir dir;
    write_file(dir / "schema.yaml",
               "directives:\n  a.b: {value_type: string}\nsections:\n  s: {parse_mode: key_value, entries: {raw: "
               "{value_type: string}}}\n  a: {parse_mode: key_value}\n");
    const auto get_key = [&](const char* key) {
        return run_edit({"get", "--schema", dir / "schema.yaml", "-", key},
                        {.input = "%a.b 1\n>s\nraw 2\n# c\ncharge 3\nend\n>a\nb 4\nend\n"});
    };
    EXPECT_EQ(get_key("s.raw").out, "2\n");
    EXPECT_EQ(get_key("s.charge").out, "3\n");
    EXPECT_EQ(get_key("%a.b").out, "1\n");
    EXPECT_EQ(get_key(">a.b").out, "4\n");
    EXPECT_THAT(get_key("a.b").err, HasSubstr("write '%a.b' or '>a.b'"));
}

TEST(Get, PrintsASectionWithoutAnEndToTheEndOfTheFile) {
    EXPECT_EQ(get({"scf"}, "! hf\r\n>scf\r\n guess core\r\n\r\n# c\r\n! x").out, ">scf\n guess core\n\n# c\n! x\n");
    EXPECT_EQ(get({"scf"}, ">scf\n end\n>scf\n a 1\nend\n").out, ">scf\n end\n");
}

class GetFiles : public testing::Test {
protected:
    GetFiles() {
        write_file(dir / "a.inp", job);
        write_file(dir / "b,\".inp", "%maxcore 1\n");
    }
    ProgramRun run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "get");
        return run_edit(arguments, {.directory = dir.path()});
    }
    TempDir dir;
};

TEST_F(GetFiles, NamesFileAndKeyOnEveryLine) {
    const std::string a =
        "a.inp\tmaxcore\t2000\na.inp\txyz\t>xyz -1 2 angstrom\na.inp\txyz\t  He 0 0 0.5\n"
        "a.inp\txyz\tend\na.inp\t!method\tuHF HF\n";
    const ProgramRun many = run({"maxcore", "xyz", "!method", "--files", "a.inp", "b,\".inp"});
    EXPECT_EQ(many.status, 1);
    EXPECT_EQ(many.out, a + "b,\".inp\tmaxcore\t1\n");
    EXPECT_EQ(many.err, "amesp-inp: 'b,\".inp' has no xyz\namesp-inp: 'b,\".inp' has no !method\n");
    EXPECT_EQ(run({"--names", "a.inp", "maxcore", "xyz", "!method"}).out, a);
    EXPECT_EQ(run({"maxcore", "--files", "a.inp"}).out, "a.inp\tmaxcore\t2000\n");
    EXPECT_EQ(run({".", "maxcore"}).out, "./a.inp\tmaxcore\t2000\n./b,\".inp\tmaxcore\t1\n");
    EXPECT_EQ(run({"maxcore", "--files", "."}).out, "./a.inp\tmaxcore\t2000\n./b,\".inp\tmaxcore\t1\n");
    EXPECT_EQ(run({"maxcore", "--exclude", "b*", "--files", "."}).out, "./a.inp\tmaxcore\t2000\n");
    write_file(dir / "list", "a.inp\n");
    EXPECT_EQ(run({"maxcore", "!method", "--files-from", "list"}).out,
              "a.inp\tmaxcore\t2000\na.inp\t!method\tuHF HF\n");
}

TEST_F(GetFiles, GivesJson) {
    const ProgramRun values = run({"%note", "!method", "--format", "json", "--files", "a.inp", "b,\".inp"});
    EXPECT_EQ(values.status, 1);
    EXPECT_EQ(values.out, R"({
  "format": "amesp-inp values",
  "version": 1,
  "schema": ")" VELK_SOURCE_DIRECTORY R"(/schemas/input/amesp.yaml",
  "values": [
    {
      "file": "a.inp",
      "key": "%note",
      "value": "a,\"b\""
    },
    {
      "file": "a.inp",
      "key": "!method",
      "value": [
        "uHF",
        "HF"
      ]
    },
    {
      "file": "b,\".inp",
      "key": "%note",
      "value": null
    },
    {
      "file": "b,\".inp",
      "key": "!method",
      "value": null
    }
  ]
}
)");
    EXPECT_THAT(run({"a.inp", "xyz.charge", "--format", "json"}).out, HasSubstr("\"value\": \"-1\"\n"));
}

TEST_F(GetFiles, GivesCsvWithQuotesWhereTheyAreNeeded) {
    const ProgramRun values = run({"%note", "%maxcore", "scf.raw", "--format", "csv", "--files", "a.inp", "b,\".inp"});
    EXPECT_EQ(values.status, 1);
    EXPECT_EQ(values.out,
              "file,key,value\r\na.inp,%note,\"a,\"\"b\"\"\"\r\na.inp,%maxcore,2000\r\na.inp,scf.raw,  # tight\r\n"
              "a.inp,scf.raw,\r\n\"b,\"\".inp\",%maxcore,1\r\n");
}

TEST_F(GetFiles, GoesOnAfterAFileThatCannotBeReadButTellsAWrongKeyOnce) {
    const ProgramRun missing = run({"maxcore", "--files", "none", "a.inp"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.out, "a.inp\tmaxcore\t2000\n");
    EXPECT_EQ(missing.err, "amesp-inp: cannot read 'none': No such file or directory\n");
    const ProgramRun wrong = run({"maxcore", "opt", "--files", "a.inp", "b,\".inp"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.out, "");
    EXPECT_EQ(std::count(wrong.err.begin(), wrong.err.end(), '\n'), 1);
}

TEST_F(GetFiles, NeedsFileAndKey) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{}, {"a.inp"}, {"--files", "a.inp"}, {"a.inp", "!", "--format", "xml"}}) {
        const ProgramRun misuse = run(words);
        EXPECT_EQ(misuse.status, 2);
        EXPECT_EQ(misuse.out, "");
        EXPECT_THAT(misuse.err, testing::StartsWith("amesp-inp get: "));
    }
}

}  // namespace
}  // namespace velk::test
