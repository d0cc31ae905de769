// The worker threads of `amesp-inp check` with each of their allocations failing in turn: the program says so and ends
// as it does for any other trouble.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";

class Workers : public testing::TestWithParam<const char*> {
protected:
    Workers() {
        write_file(dir_ / "a.inp", "% maxcore lots\n");
        write_file(dir_ / "b.inp", "! hf\n>xyz 0 1\n");
    }

    ProgramRun check(long failing, const std::string& log = "") const {
        return run_program({"check", "--schema", starter, "--format", GetParam(), "-j", "2", dir_.path()},
                           {.environment = {"LD_PRELOAD=" FAILING_ALLOCATIONS_LIBRARY, "VELK_FAULT_LOG=" + log,
                                            "VELK_FAULT_AT=" + std::to_string(failing)}});
    }

    const TempDir dir_;
};

TEST_P(Workers, OutOfMemoryEndInAMessageAndStatusTwo) {
    const TempDir logs;
    const ProgramRun usual = check(0, logs / "log");
    ASSERT_EQ(usual.status, 1) << usual.err;
    const std::string counted = read_file(logs / "log");
    const long allocations = counted.empty() ? 0 : std::stol(counted);
    if (allocations == 0) {
        GTEST_SKIP() << "a sanitizer's own allocations come first";
    }
    long troubles = 0;
    for (long failing = 1; failing <= allocations; ++failing) {
        const ProgramRun run = check(failing);
        if (run.status == 1) {
            EXPECT_EQ(run.out, usual.out) << failing;  // what could do without
            continue;
        }
        EXPECT_EQ(run.status, 2) << failing;
        EXPECT_THAT(run.err, testing::StartsWith("amesp-inp: ")) << failing;
        EXPECT_THAT(run.err, testing::HasSubstr("out of memory\n")) << failing;
        EXPECT_THAT(run.out, testing::AnyOf(testing::HasSubstr("a.inp"), testing::HasSubstr("b.inp"))) << failing;
        ++troubles;
    }
    EXPECT_GT(troubles, allocations / 2);
    std::printf("each of %ld allocations failed\n", allocations);
}

INSTANTIATE_TEST_SUITE_P(Check, Workers, testing::Values("text", "json"),
                         [](const auto& format) { return std::string(format.param); });

}  // namespace
}  // namespace velk::test
