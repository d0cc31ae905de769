// Answers of the system that no test machine gives by itself: this program's own getrandom, fsync and fstat stand
// before those of the C library.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <functional>
#include <velk/core/fs.hpp>

#include "support/temp_dir.hpp"

namespace {

std::function<ssize_t(std::uint64_t&)> random_number;  // those that are empty are the system's
std::function<int(int)> sync_file;
std::function<int()> file_status;

template <class Function>
Function of_the_system(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) ssize_t getrandom(void* bytes, std::size_t size, unsigned flags) {
    std::uint64_t number = 0;
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
    return file_status ? file_status() : of_the_system<int (*)(int, struct stat*)>("fstat")(file, status);
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
    for (const ssize_t answer : {ssize_t{-1}, ssize_t{4}}) {
        random_number = [&](std::uint64_t&) {
            errno = ENOSYS;
            return answer;
        };
        EXPECT_FALSE(write_text_file_atomic(dir / "f", "new"));
        EXPECT_EQ(dir.entry_count(), 0U);
    }
}

// What "no such call for a directory" is to some file systems.
TEST_F(OddAnswers, OfASyncOfTheDirectoryAreForgivenWhenTheySayThatThereIsNone) {
    for (const auto& [error, succeeds] : {std::pair(EINVAL, true), std::pair(EIO, false)}) {
        sync_file = [code = error](int file) {
            struct stat status {};
            ::fstat(file, &status);
            errno = code;
            return S_ISDIR(status.st_mode) ? -1 : 0;
        };
        EXPECT_EQ(write_text_file_atomic(dir / "f", "new"), succeeds) << error;
        EXPECT_EQ(read_file(dir / "f"), "new");
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
    file_status = [] {
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

}  // namespace
}  // namespace velk::core::fs
