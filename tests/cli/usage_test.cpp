// Help, and what is said of a mistyped command line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

struct Mistyped {
    std::vector<std::string> arguments;
    std::string message;
    std::string help;  // the command that prints it
};

TEST(Usage, NamesTheNearestVerbOrOption) {
    const Mistyped cases[] = {
        {{"chekc", "x"}, "amesp-inp: 'chekc' is no verb; did you mean 'check'?", "amesp-inp"},
        {{"nonsense"}, "amesp-inp: 'nonsense' is no verb", "amesp-inp"},
        {{"help", "bet"}, "amesp-inp: 'bet' is no verb; did you mean 'get' or 'set'?", "amesp-inp"},
        {{"--versin"}, "amesp-inp: '--versin' is no option; did you mean '--version'?", "amesp-inp"},
        {{"check", "--formt", "json", "x"},
         "amesp-inp check: '--formt' is no option; did you mean '--format'?",
         "amesp-inp check"},
        {{"check", "--formt=json"},
         "amesp-inp check: '--formt' is no option; did you mean '--format'?",
         "amesp-inp check"},
        {{"set", "x", "-dry-run"},
         "amesp-inp set: '-dry-run' is no option; did you mean '--dry-run'?",
         "amesp-inp set"},
        {{"fmt", "x", "--nonsense"}, "amesp-inp fmt: '--nonsense' is no option", "amesp-inp fmt"},
    };
    for (const auto& [arguments, message, help] : cases) {
        const ProgramRun run = run_program(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, message + "\nTry '" + help + " --help'.\n");
    }
}

TEST(Usage, ErrorsBeginWithTheVerb) {
    const std::vector<std::string> wrong[] = {
        {"check"},
        {"check", "x", "--format", "xml"},
        {"check", "x", "-j", "0"},
        {"check", "--fix", "-"},
        {"set", "x", "y", "-o", "z"},
        {"geom", "x"},
        {"new"},
        {"show"},
        {"help", "a", "b"},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const ProgramRun run = run_program(
            arguments,
            {.environment = {"VELK_AMESP_INP_SCHEMA_YAML=" VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml"}});
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, testing::StartsWith("amesp-inp " + arguments[0] + ": ")) << run.err;
        EXPECT_THAT(run.err, testing::EndsWith("\nTry 'amesp-inp " + arguments[0] + " --help'.\n"));
    }
}

TEST(Usage, HelpOfAVerbIsWhatTheVerbItselfPrints) {
    for (const char* const verb : {"check", "explain", "show", "fmt", "get", "set", "geom", "new", "help"}) {
        const ProgramRun run = run_program({"help", verb});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, run_program({verb, "--help"}).out);
        EXPECT_NE(run.out, "");
        EXPECT_EQ(run.err, "");
    }
    EXPECT_EQ(run_program({"help"}).out, run_program({"--help"}).out);
    EXPECT_THAT(run_program({"help"}).out, testing::HasSubstr("\n  help "));
    EXPECT_EQ(run_program({"-V"}).out, run_program({"--version"}).out);
}

}  // namespace
}  // namespace velk::test
