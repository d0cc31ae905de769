// The page of each editing subcommand shows its help as the program prints it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

class VerbPage : public testing::TestWithParam<const char*> {};

TEST_P(VerbPage, ShowsTheHelpWhichBeginsWithExamples) {
    const std::string verb = GetParam();
    const ProgramRun help = run_edit({verb, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, testing::StartsWith("Examples:\n  amesp-inp " + verb));
    EXPECT_THAT(read_file(VELK_SOURCE_DIRECTORY "/docs/verbs/" + verb + ".md"),
                testing::HasSubstr("```text\n" + help.out + "```\n"));
}

INSTANTIATE_TEST_SUITE_P(Docs, VerbPage, testing::Values("fmt", "get", "set", "geom", "new"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace velk::test
