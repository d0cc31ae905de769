// What a write says of its end, and why. This program's own open, write, rename and unlink stand before those of the C
// library.
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>
#include <velk/core/fs.hpp>

#include "support/temp_dir.hpp"

namespace {

std::function<int(int)> open_directory;  // by flags; those that are empty are the system's
std::function<ssize_t(int, const void*, std::size_t)> write_bytes;
std::function<int(const char*, const char*)> rename_file;
std::function<int(const char*)> unlink_file;

template <class Function>
Function of_the_system(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int failure(int error) {
    errno = error;
    return -1;
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (open_directory && (flags & O_DIRECTORY) != 0) {
        return open_directory(flags);
    }
    return of_the_system<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}

__attribute__((visibility("default"))) ssize_t write(int file, const void* bytes, std::size_t size) {
    return write_bytes ? write_bytes(file, bytes, size)
                       : of_the_system<ssize_t (*)(int, const void*, std::size_t)>("write")(file, bytes, size);
}

__attribute__((visibility("default"))) int rename(const char* from, const char* to) noexcept {
    return rename_file ? rename_file(from, to) : of_the_system<int (*)(const char*, const char*)>("rename")(from, to);
}

__attribute__((visibility("default"))) int unlink(const char* path) noexcept {
    return unlink_file ? unlink_file(path) : of_the_system<int (*)(const char*)>("unlink")(path);
}

}  // extern "C"

namespace velk::core::fs {

bool operator==(const WriteResult& a, const WriteResult& b) {
    return a.outcome == b.outcome && a.reason == b.reason;
}

void PrintTo(const WriteResult& result, std::ostream* out) {
    *out << static_cast<int>(result.outcome) << " '" << result.reason << "'";
}

namespace {

using test::read_file;
using test::TempDir;
using test::write_file;

const WriteResult written = {WriteOutcome::written, ""};

WriteResult not_written(std::string_view reason) {
    return {WriteOutcome::not_written, reason};
}

WriteResult not_synced(std::string_view reason) {
    return {WriteOutcome::not_synced, reason};
}

int really_rename(const char* from, const char* to) {
    return of_the_system<int (*)(const char*, const char*)>("rename")(from, to);
}

class WriteTextFile : public testing::Test {
protected:
    void TearDown() override {
        open_directory = nullptr;
        write_bytes = nullptr;
        rename_file = nullptr;
        unlink_file = nullptr;
    }

    // The file is as it was, and alone.
    void expect_old() const {
        EXPECT_EQ(read_file(dir / "f"), "old");
        EXPECT_EQ(dir.entry_count(), 1U);
    }
    void expect_new() const {
        EXPECT_EQ(read_file(dir / "f"), "new");
        EXPECT_EQ(dir.entry_count(), 1U);
    }

    const TempDir dir;
};

TEST_F(WriteTextFile, SaysWhyAFileIsNotWritten) {
    write_file(dir / "f", "old");
    std::filesystem::create_symlink("loop", dir / "loop");
    ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
    const std::array<std::array<std::string, 2>, 8> cases = {{
        {"", "No such file or directory"},
        {dir / std::string("a\0b", 3), "No such file or directory"},
        {dir / "missing/f", "No such file or directory"},
        {dir / "f/below", "Not a directory"},
        {dir.path(), "Is a directory"},
        {dir / "pipe", "Not a regular file"},
        {dir / "loop", "Too many levels of symbolic links"},
        {dir / std::string(300, 'x'), "File name too long"},
    }};
    for (const auto& [path, reason] : cases) {
        EXPECT_EQ(write_text_file(path, "new"), not_written(reason)) << path;
    }
    EXPECT_EQ(dir.entry_count(), 3U);
    EXPECT_EQ(write_text_file(dir / "f", "new"), written);
    EXPECT_EQ(read_file(dir / "f"), "new");
}

TEST_F(WriteTextFile, SaysWhyBytesAreNotTakenAndRemovesWhatItMade) {
    write_file(dir / "f", "old");
    write_bytes = [](int, const void*, std::size_t) { return failure(ENOSPC); };
    EXPECT_EQ(write_text_file(dir / "f", "new"), not_written("No space left on device"));
    expect_old();
}

TEST_F(WriteTextFile, EndsWhenNoByteIsTakenAndNoReasonGiven) {
    write_file(dir / "f", "old");
    int asked = 0;
    write_bytes = [&](int, const void*, std::size_t) { return ++asked < 1000 ? 0 : failure(EBADF); };
    errno = 0;
    EXPECT_EQ(write_text_file(dir / "f", "new"), not_written("Input/output error"));
    EXPECT_EQ(asked, 1);
    expect_old();
}

TEST_F(WriteTextFile, KeepsTheReasonWhileItRemovesTheTemporaryFile) {
    write_file(dir / "f", "old");
    int removals = 0;
    rename_file = [](const char*, const char*) { return failure(EDQUOT); };
    unlink_file = [&](const char* path) {
        if (++removals == 1) {
            return failure(EINTR);
        }
        const int result = of_the_system<int (*)(const char*)>("unlink")(path);
        errno = EPERM;
        return result;
    };
    EXPECT_EQ(write_text_file(dir / "f", "new"), not_written("Disk quota exceeded"));
    EXPECT_EQ(removals, 2);
    expect_old();
}

TEST_F(WriteTextFile, TriesAnInterruptedRenameAgain) {
    write_file(dir / "f", "old");
    for (const bool happened : {false, true}) {
        int calls = 0;
        rename_file = [&](const char* from, const char* to) {
            if (++calls > 1) {
                return really_rename(from, to);
            }
            if (happened) {
                really_rename(from, to);
            }
            return failure(EINTR);
        };
        EXPECT_EQ(write_text_file(dir / "f", "new"), written) << happened;
        EXPECT_EQ(calls, 2);
        expect_new();
    }
    for (const int error : {EIO, ENOENT}) {
        rename_file = [error](const char*, const char*) { return failure(error); };
        EXPECT_EQ(write_text_file(dir / "f", "newer").outcome, WriteOutcome::not_written);
        expect_new();
    }
    bool interrupted = false;
    rename_file = [&](const char*, const char*) { return failure(std::exchange(interrupted, true) ? EIO : EINTR); };
    EXPECT_EQ(write_text_file(dir / "f", "newer"), not_written("Input/output error"));
    expect_new();
}

TEST_F(WriteTextFile, WritesWhereTheDirectoryMayNotBeReadAndSaysThatItIsNotSynced) {
    write_file(dir / "f", "old");
    open_directory = [](int) { return failure(EACCES); };
    EXPECT_EQ(write_text_file(dir / "f", "new"), not_synced("Permission denied"));
    expect_new();
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "newer"));
    open_directory = [](int) { return failure(EMFILE); };
    EXPECT_EQ(write_text_file(dir / "f", "newest"), not_written("Too many open files"));
    EXPECT_EQ(read_file(dir / "f"), "newer");
}

// Takes standard streams away from the process, for as long as this lives.
class WithoutStreams {
public:
    explicit WithoutStreams(const std::vector<int>& streams) {
        for (const int stream : streams) {
            saved_.push_back({stream, ::fcntl(stream, F_DUPFD_CLOEXEC, 10)});
            ::close(stream);
        }
    }
    WithoutStreams(const WithoutStreams&) = delete;
    WithoutStreams& operator=(const WithoutStreams&) = delete;
    ~WithoutStreams() {
        for (const auto& [stream, saved] : saved_) {
            saved >= 0 ? ::dup2(saved, stream) : ::close(stream);
            ::close(saved);
        }
    }

    bool are_closed() const {
        return std::all_of(saved_.begin(), saved_.end(),
                           [](const auto& entry) { return ::fcntl(entry[0], F_GETFD) == -1; });
    }

private:
    std::vector<std::array<int, 2>> saved_;
};

TEST_F(WriteTextFile, GivesNoFileThatIsWrittenTheNumberOfAStandardStream) {
    const std::vector<std::vector<int>> closed = {{}, {0}, {0, 1}, {1, 2}, {0, 1, 2}, {2}};
    for (const bool may_read_directory : {true, false}) {
        for (const std::vector<int>& streams : closed) {
            int lowest = 1000;
            bool inherited = false;
            write_bytes = [&](int file, const void* bytes, std::size_t size) {
                lowest = std::min(lowest, file);
                inherited |= ::fcntl(file, F_GETFD) != FD_CLOEXEC;
                return of_the_system<ssize_t (*)(int, const void*, std::size_t)>("write")(file, bytes, size);
            };
            if (!may_read_directory) {
                open_directory = [](int) { return failure(EACCES); };
            }
            bool left_closed = false;
            {
                const WithoutStreams none(streams);
                write_text_file(dir / "f", "new");
                left_closed = none.are_closed();
            }
            EXPECT_GE(lowest, 3);
            EXPECT_LT(lowest, 1000);
            EXPECT_FALSE(inherited);
            EXPECT_TRUE(left_closed);
            write_bytes = nullptr;
            expect_new();
        }
    }
}

TEST_F(WriteTextFile, FailsWhereOnlyTheNumberOfAStandardStreamIsLeft) {
    write_file(dir / "f", "old");
    WriteResult result;
    {
        struct rlimit usual {};
        ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
        const WithoutStreams none({0, 1});
        const struct rlimit three = {3, usual.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &three);
        result = write_text_file(dir / "f", "new");
        ::setrlimit(RLIMIT_NOFILE, &usual);
    }
    EXPECT_EQ(result.outcome, WriteOutcome::not_written);
    EXPECT_NE(result.reason, "");
    expect_old();
}

}  // namespace
}  // namespace velk::core::fs
