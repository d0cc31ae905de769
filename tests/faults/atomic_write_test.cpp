// Each call of an atomic write failing, cut short, interrupted or the last of its process: the target is wholly old or
// wholly new, a failure is reported, and nothing else is left behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <velk/core/text.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";
const std::string before = "! HF\n>xyz 0 1\nHe 0 0 0\nend\n";
const std::string formatted = "! hf\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";
const std::string changed = "! hf b3lyp\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";

enum class Target { existing, absent, link };

// A program that writes the file named last, and what the file then holds.
struct Writer {
    const char* name;
    const char* program;
    std::vector<std::string> arguments;
    Target target;
    std::string before;
    std::string after;
};

const Writer writers[] = {
    {"LibraryExistingFile", WRITE_DOCUMENT_PROGRAM, {}, Target::existing, before, "! hf\n"},
    {"LibraryNewFile", WRITE_DOCUMENT_PROGRAM, {}, Target::absent, "", "! hf\n"},
    {"LibraryThroughALink", WRITE_DOCUMENT_PROGRAM, {}, Target::link, before, "! hf\n"},
    {"Fmt", AMESP_INP_PROGRAM, {"fmt", "--schema", starter, "-i"}, Target::existing, before, formatted},
    {"Set",
     AMESP_INP_PROGRAM,
     {"set", "--schema", starter, "--add-token", "b3lyp", "-i"},
     Target::existing,
     formatted,
     changed},
};

class Scene {
public:
    explicit Scene(const Writer& writer) : writer_(writer) {
        const std::string file = writer.target == Target::link ? dir_ / "target" : path();
        if (writer.target != Target::absent) {
            write_file(file, writer.before);
            ::chmod(file.c_str(), 0640);
        }
        if (writer.target == Target::link) {
            std::filesystem::create_symlink("target", path());
        }
        entries_ = dir_.entry_count();
    }

    ProgramRun run(const std::string& fault, std::size_t at, const std::string& log = "") const {
        std::vector<std::string> arguments = writer_.arguments;
        arguments.push_back(path());
        return run_program(arguments, {.environment = {"LD_PRELOAD=" FAILING_CALLS_LIBRARY, "VELK_FAULT=" + fault,
                                                       "VELK_FAULT_AT=" + std::to_string(at),
                                                       "VELK_FAULT_BELOW=" + dir_.path(), "VELK_FAULT_LOG=" + log},
                                       .program = writer_.program});
    }

    bool holds_old() const {
        return writer_.target == Target::absent ? !std::filesystem::exists(path())
                                                : read_file(path()) == writer_.before;
    }
    bool holds_new() const { return read_file(path()) == writer_.after; }
    bool kept_its_mode() const {
        return writer_.target == Target::absent ||
               std::filesystem::status(path()).permissions() == static_cast<std::filesystem::perms>(0640);
    }
    bool kept_its_link() const { return std::filesystem::is_symlink(path()) == (writer_.target == Target::link); }
    bool left_nothing_else() const {
        return dir_.entry_count() == entries_ + (writer_.target == Target::absent && holds_new() ? 1U : 0U);
    }

private:
    std::string path() const { return dir_ / "f.inp"; }

    const Writer& writer_;
    const TempDir dir_;
    std::size_t entries_ = 0;
};

std::vector<std::string> calls_of(const Writer& writer) {
    const Scene scene(writer);
    const TempDir logs;
    const ProgramRun run = scene.run("none", 0, logs / "log");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(scene.holds_new());
    return core::text::split_lines(read_file(logs / "log"));
}

class AtomicWrite : public testing::TestWithParam<Writer> {
protected:
    // Calls `judge(scene, run, call, is_last_sync)` for each call of the write, disturbed by `fault`.
    template <class Judge>
    void disturb_each_call(const std::string& fault, Judge judge) {
        const std::vector<std::string> calls = calls_of(GetParam());
        ASSERT_GT(calls.size(), 8U);
        const auto is_sync = [](const std::string& call) { return call == "fsync"; };
        const auto last_sync = std::find_if(calls.rbegin(), calls.rend(), is_sync).base() - 1;
        for (std::size_t i = 0; i < calls.size(); ++i) {
            SCOPED_TRACE(fault + " at call " + std::to_string(i + 1) + ", " + calls[i]);
            const Scene scene(GetParam());
            judge(scene, scene.run(fault, i + 1), calls[i],
                  calls.begin() + static_cast<std::ptrdiff_t>(i) == last_sync);
        }
        std::printf("%s: each of %zu calls\n", fault.c_str(), calls.size());
    }
};

TEST_P(AtomicWrite, ReportsAFailureAndLeavesTheOldFileAlone) {
    for (const char* const fault : {"EIO", "ENOSPC"}) {
        disturb_each_call(
            fault, [&](const Scene& scene, const ProgramRun& run, const std::string& call, bool last_sync) {
                const bool failed = run.status != 0;
                const bool said = run.err.find("failed to write") != std::string::npos ||
                                  run.err.find("cannot write") != std::string::npos ||
                                  run.err.find("cannot read") != std::string::npos;
                EXPECT_EQ(failed, said) << run.err;
                EXPECT_TRUE(!last_sync || !failed);
                const bool warned =
                    run.err.find("amesp-inp: warning: '") != std::string::npos &&
                    run.err.find("' is written, but its directory could not be synced: ") != std::string::npos;
                EXPECT_EQ(warned, last_sync && GetParam().program == std::string(AMESP_INP_PROGRAM)) << run.err;
                // A name that cannot be read as a link is no link, and the owner is kept only where that
                // may be.
                const bool harmless = call == "readlink" || call == "fchown";
                const bool after_the_end = call == "close" && !failed;
                EXPECT_TRUE(failed || harmless || after_the_end || last_sync);
                EXPECT_TRUE(failed ? scene.holds_old() : scene.holds_new());
                EXPECT_TRUE(scene.left_nothing_else());
                EXPECT_TRUE(scene.kept_its_mode());
                EXPECT_TRUE(scene.kept_its_link());
            });
    }
}

TEST_P(AtomicWrite, GoesOnAfterAnInterruptionAndAShortTransfer) {
    for (const char* const fault : {"EINTR", "short"}) {
        disturb_each_call(fault, [&](const Scene& scene, const ProgramRun& run, const std::string&, bool) {
            EXPECT_EQ(run.status, 0) << run.err;
            EXPECT_TRUE(scene.holds_new());
            EXPECT_TRUE(scene.left_nothing_else());
            EXPECT_TRUE(scene.kept_its_mode());
            EXPECT_TRUE(scene.kept_its_link());
        });
    }
}

TEST_P(AtomicWrite, LeavesAWholeFileWhenItsProcessIsKilled) {
    bool seen_old = false;
    bool seen_new = false;
    disturb_each_call("kill", [&](const Scene& scene, const ProgramRun& run, const std::string&, bool) {
        EXPECT_EQ(run.status, -1);
        EXPECT_NE(scene.holds_old(), scene.holds_new());
        EXPECT_TRUE(scene.kept_its_mode());
        EXPECT_TRUE(scene.kept_its_link());
        seen_old |= scene.holds_old();
        seen_new |= scene.holds_new();
    });
    EXPECT_TRUE(seen_old);
    EXPECT_TRUE(seen_new);
}

// What a crash of the machine would leave: the bytes are on the disk before the name points to them, and the name is
// before success is reported.
TEST_P(AtomicWrite, SyncsTheBytesBeforeTheRenameAndTheDirectoryAfterIt) {
    std::string order;
    for (const std::string& call : calls_of(GetParam())) {
        if (call == "write" || call == "fchmod" || call == "fsync" || call == "rename") {
            order += call + ' ';
        }
    }
    EXPECT_EQ(order,
              GetParam().target == Target::absent ? "write fsync rename fsync " : "write fchmod fsync rename fsync ");
}

INSTANTIATE_TEST_SUITE_P(Faults, AtomicWrite, testing::ValuesIn(writers),
                         [](const auto& writer) { return std::string(writer.param.name); });

}  // namespace
}  // namespace velk::test
