// The program in little memory: whatever the size, it does all of its work or says what it lacks, and is never ended by
// a signal.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20U;
const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";

std::string long_input() {
    std::string text = "! hf sto-3g\n>scf\n";
    while (text.size() < megabyte) {
        text += "  maxcyc = 50\n";
    }
    text += "end\n>xyz 0 1\n";
    while (text.size() < 2 * megabyte) {
        text += "  He 0.25 0.5 0.125\n";
    }
    return text + "end\n";
}

struct Call {
    const char* name;
    std::vector<std::string> words;
};

void PrintTo(const Call& call, std::ostream* out) {
    *out << call.name;
}

const Call calls[] = {
    {"Check", {"check", "--fail-on", "never", "--schema", starter, "long.inp"}},
    {"CheckOnManyThreads", {"check", "-j", "32", "--fail-on", "never", "--schema", starter, "."}},
    {"Show", {"show", "--schema", starter, "long.inp"}},
    {"Fmt", {"fmt", "-q", "--force", "-i", "--schema", starter, "long.inp"}},
    {"Set", {"set", "-q", "--force", "-i", "--schema", starter, "--method", "b3lyp", "long.inp"}},
};

class AddressSpace : public testing::TestWithParam<Call> {
protected:
    // With a file that was not written before.
    ProgramRun run(std::size_t megabytes) const {
        write_file(dir_ / "long.inp", input_);
        return run_program(GetParam().words, {.directory = dir_.path(), .address_space = megabytes * megabyte});
    }

    static bool starts(std::size_t megabytes) {
        return run_program({"--version"}, {.address_space = megabytes * megabyte}).status == 0;
    }

    const TempDir dir_;
    const std::string input_ = long_input();
};

TEST_P(AddressSpace, ThatIsTooSmallEndsInALineAndStatusTwo) {
    constexpr std::size_t largest = 4096;
    for (int i = 0; i < 40; ++i) {
        write_file(dir_ / std::to_string(i) + ".inp", "! hf sto-3g\n>xyz 0 1\nHe 0 0 0\nend\n");
    }
    const ProgramRun usual = run(0);
    ASSERT_EQ(usual.status, 0) << usual.err;
    const std::string written = read_file(dir_ / "long.inp");
    if (!starts(largest)) {
        GTEST_SKIP() << "a sanitizer needs more";
    }
    std::size_t size = 1;
    while (!starts(size)) {
        ++size;
    }
    int troubles = 0;
    for (ProgramRun last; last.status != 0; size += 1 + size / 12) {
        ASSERT_LT(size, largest);
        last = run(size);
        const std::string file = read_file(dir_ / "long.inp");
        EXPECT_TRUE(file == input_ || file == written) << size;
        if (last.status == 0) {
            EXPECT_EQ(last.out, usual.out) << size;
            EXPECT_EQ(file, written) << size;
        } else {
            EXPECT_EQ(last.status, 2) << size << ": " << last.err;
            EXPECT_THAT(last.err, testing::AllOf(testing::StartsWith("amesp-inp: "), testing::HasSubstr("memory")))
                << size;
            ++troubles;
        }
    }
    EXPECT_GT(troubles, 3);
    std::printf("%d sizes, the last %zu MB\n", troubles, size);
}

INSTANTIATE_TEST_SUITE_P(Program, AddressSpace, testing::ValuesIn(calls),
                         [](const auto& call) { return call.param.name; });

}  // namespace
}  // namespace velk::test
