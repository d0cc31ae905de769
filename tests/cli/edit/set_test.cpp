// amesp-inp set: keys in its options, charge and multiplicity alone, and what it says of new names.
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

ProgramRun set(std::vector<std::string> arguments, const std::string& text = water) {
    arguments.insert(arguments.begin(), {"set", "-"});
    return run_edit(arguments, {.input = text});
}

struct KeyCase {
    const char* option;
    std::vector<const char*> spellings;
    const char* old;
    const char* now;
};

class SetKey : public testing::TestWithParam<KeyCase> {};

TEST_P(SetKey, MeansTheSameInEachSpelling) {
    for (const char* const spelling : GetParam().spellings) {
        const ProgramRun run = set({GetParam().option, spelling});
        EXPECT_EQ(run.status, 0) << spelling << ": " << run.err;
        EXPECT_EQ(run.out, with(water, GetParam().old, GetParam().now)) << spelling;
        EXPECT_EQ(run.err, "") << spelling;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Set, SetKey,
    testing::Values(KeyCase{"--directive", {"maxcore=1", "%maxcore=1", "maxcore = 1", " % mem =1"}, "2000", "1"},
                    KeyCase{"--unset-directive", {"maxcore", "%maxcore", "% MEM"}, "% maxcore 2000\n", ""},
                    KeyCase{"--method", {"mp2 sto-3g", "! mp2 sto-3g", "!mp2 sto-3g"}, "hf", "mp2"},
                    KeyCase{"--add-token", {"sp", "!sp", "! sp"}, "sto-3g", "sto-3g sp"},
                    KeyCase{"--remove-token", {"sto-3g", "!sto3g", "!basis"}, " sto-3g", ""},
                    KeyCase{"--entry", {"scf.maxcyc=9", ">scf.maxcyc=9", "SCF.MaxIter = 9"}, "50", "9"},
                    KeyCase{"--unset-entry", {"scf.maxcyc", ">scf.maxiter", "> scf . maxcyc"}, "  maxcyc 50\n", ""},
                    KeyCase{"--entry", {"xyz.charge=2", ">xyz.charge = +2"}, ">xyz 0 1", ">xyz 2 1"},
                    KeyCase{"--entry", {"xyz.multiplicity=3"}, ">xyz 0 1", ">xyz 0 3"}));

TEST(SetKey, OfAnotherKindIsAMistake) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--directive", ">scf=1"}, "--directive expects a directive, but '>scf' is a section\n"},
        {{"--directive", "!hf=1"}, "but '!hf' is a token\n"},
        {{"--directive", "%=1"}, "--directive expects a directive, got '%'\n"},
        {{"--directive", "maxcore"}, "--directive expects NAME=VALUE, got 'maxcore'\n"},
        {{"--unset-directive", "scf.maxcyc", "--unset-directive", ">scf.maxcyc"}, "is an entry of a section\n"},
        {{"--entry", "scf=1"}, "--entry expects an entry of a section, got 'scf'\n"},
        {{"--entry", ">scf=1"}, "but '>scf' is a section\n"},
        {{"--entry", "%maxcore=1"}, "but '%maxcore' is a directive\n"},
        {{"--entry", "xyz.atoms=1"}, "--entry cannot set 'xyz.atoms=1'\n"},
        {{"--entry", "scf.raw=1"}, "--entry cannot set 'scf.raw=1'\n"},
        {{"--entry", "zmat.charge=1"}, "--entry cannot set 'zmat.charge=1'\n"},
        {{"--entry", "xyz.charge=one"}, "--entry expects an integer after '=', got 'xyz.charge=one'\n"},
        {{"--unset-entry", "xyz.charge"}, "--unset-entry cannot remove 'xyz.charge'\n"},
        {{"--add-token", "!basis"}, "but '!basis' is a category of tokens\n"},
        {{"--remove-token", "!"}, "but '!' is all tokens\n"},
        {{"--remove-section", "%scf"}, "--remove-section expects a section, but '%scf' is a directive\n"}};
    for (const auto& [arguments, message] : cases) {
        const ProgramRun run = set(arguments);
        EXPECT_EQ(run.status, 2) << arguments[1];
        EXPECT_EQ(run.out, "") << arguments[1];
        EXPECT_THAT(run.err, HasSubstr(message)) << arguments[1];
    }
}

TEST(SetKey, WithoutAMarkIsWhatTheOptionChanges) {
    const std::string text = "! hf opt\n\n>opt\n  conv tight\nend\n\n>xyz 0 1\n  He 0 0 0\nend\n";
    EXPECT_THAT(set({"--remove-token", "opt"}, text).out, testing::StartsWith("! hf\n\n>opt\n"));
    for (const char* const section : {"opt", ">opt", "> OPT"}) {
        const std::string left = set({"--remove-section", section}, text).out;
        EXPECT_THAT(left, Not(HasSubstr(">opt"))) << section;
        EXPECT_THAT(left, testing::StartsWith("! hf opt\n")) << section;
    }
}

struct Header {
    const char* before;
    std::vector<std::string> options;
    const char* after;
};

class SetHeader : public testing::TestWithParam<Header> {};

TEST_P(SetHeader, ChangesNothingElse) {
    const std::string text = std::string("! hf # x\n") + GetParam().before + "\n  O 0 0 0   apex\nEnd\n# c\n";
    const ProgramRun run = set(GetParam().options, text);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, with(text, GetParam().before, GetParam().after));
    EXPECT_EQ(run.err, "");
}

INSTANTIATE_TEST_SUITE_P(
    Set, SetHeader,
    testing::Values(Header{">XYZ  0   1 angstrom", {"--charge", "-1", "--multiplicity", "2"}, ">XYZ  -1   2 angstrom"},
                    Header{">xyz 0 1", {"--charge", "+2"}, ">xyz 2 1"},
                    Header{">xyz 0 1", {"--multiplicity", "3"}, ">xyz 0 3"},
                    Header{">xyz +1 02 x", {"--charge", "0"}, ">xyz 0 02 x"},
                    Header{">xyz +1 02 x", {"--charge", "1", "--multiplicity", "1"}, ">xyz +1 1 x"},
                    Header{">xyz", {"--charge", "0", "--multiplicity", "1"}, ">xyz 0 1"},
                    Header{">xyz 7", {"--charge", "0", "--multiplicity", "1"}, ">xyz 0 1"},
                    Header{">xyz angstrom", {"--charge", "0", "--multiplicity", "1"}, ">xyz 0 1 angstrom"},
                    Header{">xyz 0.5 1 angstrom", {"--charge", "0"}, ">xyz 0 1 angstrom"}));

TEST(SetHeader, IsRefusedWithoutAGeometryOrWithHalfOfIt) {
    const TempDir dir;
    const auto refused = [&](const std::string& text, const std::string& option) {
        write_file(dir / "a.inp", text);
        const ProgramRun run = run_edit({"set", "-i", "a.inp", option, "1"}, {.directory = dir.path()});
        EXPECT_EQ(run.status, 1) << text;
        EXPECT_EQ(read_file(dir / "a.inp"), text);
        return run.err;
    };
    EXPECT_EQ(refused("! hf\n>zmat\nHe\nend\n", "--charge"),
              "amesp-inp: 'a.inp' is left as it is: there is no >xyz section to take charge and multiplicity\n");
    EXPECT_EQ(refused("! hf\n>xyz\nHe 0 0 0\nend\n", "--charge"),
              "amesp-inp: 'a.inp' is left as it is: its >xyz section has no multiplicity: give --multiplicity as "
              "well\n");
    EXPECT_THAT(refused("! hf\n>xyz\nHe 0 0 0\nend\n", "--multiplicity"), HasSubstr("no charge: give --charge"));
}

TEST(Set, ReportsTheWarningsThatItBringsAndOnlyThose) {
    const std::string text = with(with(water, "hf", "hf odd"), "  maxcyc", "  strange 1\n  maxcyc");
    const ProgramRun run = set({"--directive", "maxcor=1", "--entry", "scf.gues=core", "--add-token", "odd",
                                "--add-token", "funny", "--entry", "scf.maxcyc=9"},
                               text);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("funny"));
    EXPECT_THAT(run.err, HasSubstr("warning: Unknown AMESP directive '% maxcor' was preserved."));
    EXPECT_THAT(run.err, HasSubstr("did you mean 'maxcore'?"));
    EXPECT_THAT(run.err, HasSubstr("Unknown entry 'gues' in >scf"));
    EXPECT_THAT(run.err, HasSubstr("token 'funny'"));
    EXPECT_THAT(run.err, Not(HasSubstr("strange' in")));
    std::size_t odd = 0;
    for (std::size_t at = run.err.find("token 'odd'"); at != std::string::npos;
         at = run.err.find("token 'odd'", at + 1)) {
        ++odd;
    }
    EXPECT_EQ(odd, 1U) << "one was there before";
    EXPECT_EQ(set({"--entry", "scf.maxcyc=9"}, text).err, "");
}

}  // namespace
}  // namespace velk::test
