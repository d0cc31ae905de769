// The program amesp-inp with inputs and outputs that are not what it would like.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <thread>
#include <velk/core/text.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";
const std::string good = "! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";
const std::string untidy = "! HF sto-3g\n>xyz 0 1\nHe 0 0 0\nend\n";

struct Verb {
    const char* name;
    std::vector<std::string> words;
};

const Verb printing[] = {
    {"check", {"check", "--schema", starter, "--format", "json", "-"}},
    {"explain", {"explain"}},
    {"show", {"show", "--schema", starter, "-"}},
    {"fmt", {"fmt", "--schema", starter, "-"}},
    {"set", {"set", "--schema", starter, "--directive", "maxcore=5", "-"}},
    {"get", {"get", "--schema", starter, "-", "!"}},
    {"geom", {"geom", "--schema", starter, "-", "--to-xyz", "-"}},
    {"help", {"--help"}},
};

TEST(Output, ThatCannotBeWrittenIsAnErrorOfEveryVerb) {
    for (const Verb& verb : printing) {
        const ProgramRun usual = run_program(verb.words, {.input = good});
        ASSERT_EQ(usual.status, 0) << verb.name << ": " << usual.err;
        ASSERT_NE(usual.out, "") << verb.name;
        const ProgramRun full = run_program(verb.words, {.input = good, .out_path = "/dev/full"});
        EXPECT_EQ(full.status, 2) << verb.name;
        EXPECT_THAT(full.err, HasSubstr("amesp-inp: cannot write to standard output\n")) << verb.name;
    }
}

// A descriptor from which `text` comes and then an end; a thread of its own writes it.
class Source {
public:
    Source(bool is_socket, const std::string& text) {
        std::array<int, 2> ends{};
        if ((is_socket ? ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) : ::pipe(ends.data())) != 0) {
            throw std::runtime_error("no descriptors");
        }
        reading_ = ends[0];
        ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);  // the program must not hold its own input open
        writer_ = std::jthread([text, end = ends[1]] {
            for (std::size_t done = 0; done < text.size();) {
                const ssize_t count = ::write(end, text.data() + done, std::min<std::size_t>(text.size() - done, 100));
                if (count <= 0) {
                    break;
                }
                done += static_cast<std::size_t>(count);
            }
            ::close(end);
        });
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    ~Source() { ::close(reading_); }

    int get() const { return reading_; }

private:
    int reading_ = -1;
    std::jthread writer_;
};

TEST(Input, MayBeAPipeOrASocket) {
    std::string comments;
    while (comments.size() < 300000) {
        comments += "# a comment\n";
    }
    for (const bool is_socket : {false, true}) {
        const Source source(is_socket, comments + good);
        const ProgramRun run = run_program({"fmt", "--schema", starter, "-"}, {.input_descriptor = source.get()});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, run_program({"fmt", "--schema", starter, "-"}, {.input = comments + good}).out);
        EXPECT_THAT(run.out, StartsWith("# a comment\n"));
        EXPECT_THAT(run.out, EndsWith(good));
    }
}

TEST(Input, ThatCannotBeReadIsAnError) {
    const TempDir dir;
    const int directory = ::open(dir.path().c_str(), O_RDONLY);
    for (const Verb& verb : printing) {
        if (verb.words.back() != "-" && verb.name != std::string("get")) {
            continue;
        }
        const ProgramRun run = run_program(verb.words, {.input_descriptor = directory});
        EXPECT_EQ(run.status, 2) << verb.name;
        EXPECT_THAT(run.err, HasSubstr("Is a directory")) << verb.name;
    }
    ::close(directory);
}

// Gives a directory its permissions back, so that it can be removed.
class Closed {
public:
    Closed(std::string path, mode_t mode) : path_(std::move(path)) { ::chmod(path_.c_str(), mode); }
    Closed(const Closed&) = delete;
    Closed& operator=(const Closed&) = delete;
    ~Closed() { ::chmod(path_.c_str(), 0700); }

private:
    std::string path_;
};

TEST(Input, BesideADirectoryThatCannotBeListedIsChecked) {
    const TempDir dir;
    for (const char* const name : {"a", "b", "c"}) {
        std::filesystem::create_directory(dir / name);
        write_file(dir / name + "/x.inp", good);
    }
    const Closed closed(dir / "b", 0);
    const ProgramRun run = run_program({"check", "--schema", starter, dir.path()}, {.obeys_permissions = true});
    if (run.status == cannot_obey_permissions) {
        GTEST_SKIP() << "root cannot give up its rights here";
    }
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("cannot read '" + dir.path() + "/b': Permission denied"));
    EXPECT_THAT(run.err, HasSubstr("2 files checked"));
}

TEST(InPlace, WritingLeavesAFileInAReadOnlyDirectoryAsItIs) {
    const TempDir dir;
    write_file(dir / "f.inp", untidy);
    const Closed closed(dir.path(), 0500);
    const std::vector<std::vector<std::string>> commands = {
        {"fmt", "--schema", starter, "-i", dir / "f.inp"},
        {"set", "--schema", starter, "-i", "--directive", "maxcore=5", dir / "f.inp"}};
    for (const std::vector<std::string>& command : commands) {
        const ProgramRun run = run_program(command, {.obeys_permissions = true});
        if (run.status == cannot_obey_permissions) {
            GTEST_SKIP() << "root cannot give up its rights here";
        }
        EXPECT_EQ(run.status, 2);
        EXPECT_THAT(run.err, HasSubstr("cannot write '" + (dir / "f.inp") + "': Permission denied\n"));
        EXPECT_EQ(read_file(dir / "f.inp"), untidy);
        EXPECT_EQ(dir.entry_count(), 1U);
    }
    const ProgramRun library =
        run_program({dir / "f.inp"}, {.program = WRITE_DOCUMENT_PROGRAM, .obeys_permissions = true});
    EXPECT_EQ(library.status, 1);
    EXPECT_EQ(library.err, "failed to write AMESP input file '" + (dir / "f.inp") + "'\n");
    EXPECT_EQ(read_file(dir / "f.inp"), untidy);
}

TEST(InPlace, WritingInADirectoryThatMayNotBeReadWarnsAndSucceeds) {
    const TempDir dir;
    const Closed closed(dir.path(), 0300);
    const std::vector<std::vector<std::string>> commands = {
        {"fmt", "--schema", starter, "-i", dir / "f.inp"},
        {"check", "--quiet", "--schema", starter, "--fix", "--canonical", dir / "f.inp"}};
    for (const std::vector<std::string>& command : commands) {
        const bool fixes = command.front() == "check";
        write_file(dir / "f.inp", fixes ? "! HF sto-3g\n>xyz 0 1\nHe 0 0 0\n" : untidy);
        const ProgramRun run = run_program(command, {.obeys_permissions = true});
        if (run.status == cannot_obey_permissions) {
            GTEST_SKIP() << "root cannot give up its rights here";
        }
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err, EndsWith("amesp-inp: warning: '" + (dir / "f.inp") +
                                      "' is written, but its directory could not be synced: Permission denied\n"));
        EXPECT_EQ(read_file(dir / "f.inp"), good);
    }
    const ProgramRun library =
        run_program({dir / "f.inp"}, {.program = WRITE_DOCUMENT_PROGRAM, .obeys_permissions = true});
    EXPECT_EQ(library.status, 0) << library.err;
    EXPECT_EQ(read_file(dir / "f.inp"), "! hf\n");
}

}  // namespace
}  // namespace velk::test
