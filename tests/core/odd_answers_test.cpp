// Answers of the system that no test machine gives by itself: this program's own getrandom, fsync, fstat and fchown
// stand before those of the C library.
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <functional>
#include <thread>
#include <utility>
#include <vector>
#include <velk/core/fs.hpp>

#include "support/temp_dir.hpp"

namespace {

std::function<ssize_t(std::uint64_t&)> random_number;  // those that are empty are the system's
std::function<int(int)> sync_file;
std::function<int(int, struct stat&)> file_status;
std::function<int(int, uid_t, gid_t)> own_file;
bool enough_gathered = true;  // false: random numbers are there only for those who wait

template <class Function>
Function of_the_system(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) ssize_t getrandom(void* bytes, std::size_t size, unsigned flags) {
    std::uint64_t number = 0;
    if (!enough_gathered && (flags & GRND_NONBLOCK) != 0) {
        errno = EAGAIN;
        return -1;
    }
    if (!random_number || size != sizeof number) {
        return of_the_system<ssize_t (*)(void*, std::size_t, unsigned)>("getrandom")(bytes, size, flags);
    }
    const ssize_t result = random_number(number);
    std::memcpy(bytes, &number, sizeof number);
    return result;
}

__attribute__((visibility("default"))) int fsync(int file) {
    return sync_file ? sync_file(file) : of_the_system<int (*)(int)>("fsync")(file);
}

__attribute__((visibility("default"))) int fstat(int file, struct stat* status) noexcept {
    return file_status ? file_status(file, *status) : of_the_system<int (*)(int, struct stat*)>("fstat")(file, status);
}

__attribute__((visibility("default"))) int fchown(int file, uid_t owner, gid_t group) noexcept {
    return own_file ? own_file(file, owner, group)
                    : of_the_system<int (*)(int, uid_t, gid_t)>("fchown")(file, owner, group);
}

}  // extern "C"

namespace velk::core::fs {
namespace {

using test::read_file;
using test::TempDir;
using test::write_file;

class OddAnswers : public testing::Test {
protected:
    void TearDown() override {
        random_number = nullptr;
        sync_file = nullptr;
        file_status = nullptr;
        own_file = nullptr;
        enough_gathered = true;
    }
    const TempDir dir;
};

TEST_F(OddAnswers, OfTheRandomNumbersLeaveAFileOfThatNameAlone) {
    write_file(dir / ".velk-7.tmp", "somebody else's");
    int asked = 0;
    random_number = [&](std::uint64_t& number) {
        number = asked++ == 0 ? 7 : 8;
        return ssize_t{8};
    };
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(read_file(dir / "f"), "new");
    EXPECT_EQ(read_file(dir / ".velk-7.tmp"), "somebody else's");
    EXPECT_EQ(dir.entry_count(), 2U);
}

TEST_F(OddAnswers, OfTheRandomNumbersEndTheWriteAfterAHundredNamesThatAreTaken) {
    write_file(dir / ".velk-7.tmp", "somebody else's");
    int asked = 0;
    random_number = [&](std::uint64_t& number) {
        number = 7;
        ++asked;
        return ssize_t{8};
    };
    EXPECT_FALSE(write_text_file_atomic(dir / "f", "new"));
    EXPECT_EQ(asked, 100);
    EXPECT_EQ(read_file(dir / ".velk-7.tmp"), "somebody else's");
    EXPECT_EQ(dir.entry_count(), 1U);
}

TEST_F(OddAnswers, OfTheRandomNumbersThatAreTooShortOrNoneMakeTheWriteFail) {
    for (const ssize_t answer : {ssize_t{-1}, ssize_t{0}, ssize_t{4}}) {
        random_number = [&](std::uint64_t&) {
            errno = ENOSYS;
            return answer;
        };
        const WriteResult result = write_text_file(dir / "f", "new");
        EXPECT_EQ(result.outcome, WriteOutcome::not_written);
        EXPECT_EQ(result.reason, answer < 0 ? "Function not implemented" : "Input/output error");
        EXPECT_EQ(dir.entry_count(), 0U);
    }
}

// What "no such call for a directory" is to some file systems. The file is written whatever they say.
TEST_F(OddAnswers, OfASyncOfTheDirectoryAreForgivenWhenTheySayThatThereIsNone) {
    for (const int error : {EINVAL, EIO}) {
        sync_file = [error](int file) {
            struct stat status {};
            ::fstat(file, &status);
            errno = error;
            return S_ISDIR(status.st_mode) ? -1 : 0;
        };
        const WriteResult result = write_text_file(dir / "f", "new");
        EXPECT_EQ(result.outcome, error == EIO ? WriteOutcome::not_synced : WriteOutcome::written);
        EXPECT_EQ(result.reason, error == EIO ? "Input/output error" : "");
        EXPECT_TRUE(write_text_file_atomic(dir / "f", "newer"));
        EXPECT_EQ(read_file(dir / "f"), "newer");
    }
    sync_file = [](int) {
        errno = EINVAL;
        return -1;
    };
    EXPECT_FALSE(write_text_file_atomic(dir / "g", "new"));
    EXPECT_EQ(dir.entry_count(), 1U);
}

TEST_F(OddAnswers, OfErrorsWithoutANameAreReportedAsUnknown) {
    write_file(dir / "f", "");
    file_status = [](int, struct stat&) {
        errno = 9999;
        return -1;
    };
    try {
        static_cast<void>(read_text_file(dir / "f"));
        ADD_FAILURE() << "no failure";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Unknown error");
    }
}

TEST_F(OddAnswers, AreInterruptionsThatNeverCountAsFailures) {
    int interruptions = 0;
    sync_file = [&](int) {
        errno = EINTR;
        return ++interruptions % 3 == 0 ? 0 : -1;
    };
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
    EXPECT_EQ(interruptions, 6);
}

TEST_F(OddAnswers, OfTheRandomNumbersAreWaitedFor) {
    enough_gathered = false;
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
}

TEST_F(OddAnswers, OfTheRandomNumbersHaveNothingToDoWithTheStandardInput) {
    write_file(dir / "input", "somebody's");
    const int saved = ::fcntl(0, F_DUPFD_CLOEXEC, 3);
    const int input = ::open((dir / "input").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::dup2(input, 0), 0);
    ::close(input);
    random_number = [&](std::uint64_t&) { return ssize_t{-1}; };
    EXPECT_FALSE(write_text_file_atomic(dir / "f", "new"));
    EXPECT_NE(::fcntl(0, F_GETFD), -1);
    EXPECT_EQ(read_file(dir / "input"), "somebody's");
    saved >= 0 ? ::dup2(saved, 0) : ::close(0);
    ::close(saved);
}

TEST_F(OddAnswers, OfAFileSystemThatLetsReadDirectoriesMakeNoFilesOfThem) {
    write_file(dir / "f", "names");
    file_status = [](int, struct stat& status) {
        status.st_mode = S_IFDIR | 0755;
        return 0;
    };
    EXPECT_THROW(static_cast<void>(read_text_file(dir / "f")), std::runtime_error);
}

// All of it is there when the first byte is read: more than any buffer has room for.
TEST_F(OddAnswers, AreMoreBytesAtOnceThanThereIsRoomFor) {
    ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
    std::string content(900000, ' ');
    for (std::size_t i = 0; i < content.size(); ++i) {
        content[i] = static_cast<char>('a' + i % 23);
    }
    ssize_t written = 0;
    std::thread writer([&] {
        const int pipe = ::open((dir / "pipe").c_str(), O_WRONLY | O_CLOEXEC);
        ::fcntl(pipe, F_SETPIPE_SZ, 1 << 20);
        ::fcntl(pipe, F_SETFL, O_NONBLOCK);
        written = ::write(pipe, content.data(), content.size());
        ::close(pipe);
    });
    file_status = [&](int file, struct stat& status) {
        writer.join();
        return of_the_system<int (*)(int, struct stat*)>("fstat")(file, &status);
    };
    const std::string read = read_text_file(dir / "pipe");
    EXPECT_GT(written, 0);
    EXPECT_TRUE(read == content.substr(0, static_cast<std::size_t>(written))) << read.size() << " of " << written;
}

TEST_F(OddAnswers, OfTheOwnerLeaveTheGroupToBeKept) {
    write_file(dir / "f", "old");
    const auto keep = static_cast<uid_t>(-1);
    for (const bool may_give_away : {true, false}) {
        std::vector<std::pair<uid_t, gid_t>> asked;
        own_file = [&](int, uid_t owner, gid_t group) {
            asked.emplace_back(owner, group);
            errno = EPERM;
            return may_give_away || owner == keep ? 0 : -1;
        };
        EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
        std::vector<std::pair<uid_t, gid_t>> expected = {{::geteuid(), ::getegid()}};
        if (!may_give_away) {
            expected.emplace_back(keep, ::getegid());
        }
        EXPECT_EQ(asked, expected);
    }
}

// Neither the one that is read nor the new one and its directory.
TEST_F(OddAnswers, ShowThatNoFileIsLeftToAProgramThatIsStartedMeanwhile) {
    write_file(dir / "f", "old");
    int seen = 0;
    const auto look_at = [&](int file) {
        ++seen;
        EXPECT_EQ(::fcntl(file, F_GETFD), FD_CLOEXEC) << seen;
        return 0;
    };
    sync_file = look_at;
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
    file_status = [&](int file, struct stat& status) {
        look_at(file);
        return of_the_system<int (*)(int, struct stat*)>("fstat")(file, &status);
    };
    EXPECT_EQ(read_text_file(dir / "f"), "new");
    EXPECT_EQ(seen, 3);
}

TEST_F(OddAnswers, ShowThatNobodyElseReadsTheBytesBeforeTheFileHasItsOwner) {
    write_file(dir / "f", "old");
    const mode_t saved = ::umask(0);
    mode_t mode = 0;
    own_file = [&](int file, uid_t, gid_t) {
        struct stat status {};
        ::fstat(file, &status);
        mode = status.st_mode & 07777;
        return 0;
    };
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
    ::umask(saved);
    EXPECT_EQ(mode, 0600U);
}

}  // namespace
}  // namespace velk::core::fs
