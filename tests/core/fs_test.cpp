// Whole files: read in one piece, replaced in one step.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <velk/core/fs.hpp>

#include "support/temp_dir.hpp"

namespace velk::core::fs {
namespace {

using test::read_file;
using test::TempDir;
using test::write_file;

std::string read_failure(const std::string& path) {
    try {
        read_text_file(path);
    } catch (const std::exception& error) {
        return error.what();
    }
    return "no failure";
}

mode_t mode_of(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

TEST(ReadTextFile, GivesAllBytesUnchanged) {
    const TempDir dir;
    std::string all;
    for (int repeat = 0; repeat < 1000; ++repeat) {
        for (int byte = 0; byte < 256; ++byte) {
            all += static_cast<char>(byte);
        }
    }
    for (const std::string& content : {std::string(), std::string("a"), std::string("a\r\nb"), all}) {
        write_file(dir / "f", content);
        EXPECT_EQ(read_text_file(dir / "f"), content);
    }
}

TEST(ReadTextFile, ReadsFilesOfUnknownSizeToTheirEnd) {
    EXPECT_FALSE(read_text_file("/proc/self/status").empty());
    const TempDir dir;
    ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
    const std::string content(300000, 'x');
    std::jthread writer([&] { write_file(dir / "pipe", content); });
    EXPECT_EQ(read_text_file(dir / "pipe"), content);
}

TEST(ReadTextFile, SaysWhatFailedWithoutThePath) {
    const TempDir dir;
    EXPECT_EQ(read_failure(dir / "missing"), "No such file or directory");
    EXPECT_EQ(read_failure(dir.path()), "Is a directory");
    EXPECT_EQ(read_failure(""), "No such file or directory");
    write_file(dir / "f", "");
    EXPECT_EQ(read_failure(dir / "f/below"), "Not a directory");
    if (::geteuid() != 0) {
        ::chmod((dir / "f").c_str(), 0);
        EXPECT_EQ(read_failure(dir / "f"), "Permission denied");
    }
}

TEST(ReadTextFile, DoesNotCutAPathAtANulByte) {
    const TempDir dir;
    write_file(dir / "f", "x");
    EXPECT_EQ(read_failure(dir / "f" + std::string("\0g", 2)), "No such file or directory");
}

TEST(WriteTextFileAtomic, MakesAndReplacesFilesAndLeavesNothingElse) {
    const TempDir dir;
    const std::string path = dir / "f";
    EXPECT_TRUE(write_text_file_atomic(path, "one"));
    EXPECT_EQ(read_file(path), "one");
    const std::string second("t\0wo\xff\r\n", 7);
    EXPECT_TRUE(write_text_file_atomic(path, second));
    EXPECT_EQ(read_file(path), second);
    EXPECT_TRUE(write_text_file_atomic(path, ""));
    EXPECT_EQ(read_file(path), "");
    EXPECT_EQ(dir.entry_count(), 1U);
}

TEST(WriteTextFileAtomic, HeedsTheModeMaskForANewFile) {
    const TempDir dir;
    for (const auto& [mask, mode] : {std::pair(027U, 0640U), std::pair(0U, 0666U), std::pair(077U, 0600U)}) {
        const mode_t saved = ::umask(mask);
        EXPECT_TRUE(write_text_file_atomic(dir / std::to_string(mask), "x"));
        ::umask(saved);
        EXPECT_EQ(mode_of(dir / std::to_string(mask)), mode);
    }
}

TEST(WriteTextFileAtomic, KeepsTheModeBitsOfAnExistingFile) {
    const TempDir dir;
    write_file(dir / "f", "old");
    for (const mode_t mode : {0600U, 0644U, 0664U, 0755U, 0400U}) {
        ::chmod((dir / "f").c_str(), mode);
        EXPECT_TRUE(write_text_file_atomic(dir / "f", "new"));
        EXPECT_EQ(mode_of(dir / "f"), mode);
    }
}

TEST(WriteTextFileAtomic, WritesThroughSymbolicLinks) {
    const TempDir dir;
    std::filesystem::create_directory(dir / "sub");
    write_file(dir / "sub/target", "old");
    std::filesystem::create_symlink("sub/target", dir / "link");
    std::filesystem::create_symlink(dir / "link", dir / "second");
    EXPECT_TRUE(write_text_file_atomic(dir / "second", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "second"));
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "link"));
    EXPECT_EQ(read_file(dir / "sub/target"), "new");

    std::filesystem::create_symlink("sub/absent", dir / "dangling");
    EXPECT_TRUE(write_text_file_atomic(dir / "dangling", "made"));
    EXPECT_EQ(read_file(dir / "sub/absent"), "made");
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "dangling"));

    const auto saved = std::filesystem::current_path();
    std::filesystem::current_path(dir / "sub");
    std::filesystem::create_symlink("target", "beside");
    const bool written = write_text_file_atomic("beside", "newer");
    std::filesystem::current_path(saved);
    EXPECT_TRUE(written);
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "sub/beside"));
    EXPECT_EQ(read_file(dir / "sub/target"), "newer");
}

TEST(WriteTextFileAtomic, FollowsFortySymbolicLinksAndNoMore) {
    const TempDir dir;
    write_file(dir / "0", "old");
    for (int link = 1; link <= 41; ++link) {
        std::filesystem::create_symlink(std::to_string(link - 1), dir / std::to_string(link));
    }
    EXPECT_FALSE(write_text_file_atomic(dir / "41", "new"));
    EXPECT_EQ(read_file(dir / "0"), "old");
    EXPECT_TRUE(write_text_file_atomic(dir / "40", "new"));
    EXPECT_EQ(read_file(dir / "0"), "new");
    EXPECT_EQ(dir.entry_count(), 42U);
}

TEST(WriteTextFileAtomic, RefusesWhatIsNoRegularFileAndLeavesItAlone) {
    const TempDir dir;
    std::filesystem::create_directory(dir / "directory");
    ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("loop", dir / "loop");
    std::filesystem::create_symlink("/dev/null", dir / "device");
    const std::size_t entries = dir.entry_count();
    const std::string names[] = {
        dir / "directory", dir / "pipe", dir / "loop", dir / "device", dir / "missing/f",
        dir / "f/",        "",           "/dev/full",  dir.path(),     dir / std::string("a\0b", 3)};
    for (const std::string& name : names) {
        EXPECT_FALSE(write_text_file_atomic(name, "x")) << name;
    }
    EXPECT_EQ(dir.entry_count(), entries);
    EXPECT_TRUE(std::filesystem::is_directory(dir / "directory"));
    EXPECT_TRUE(std::filesystem::is_fifo(dir / "pipe"));
}

TEST(WriteTextFileAtomic, TakesARelativePath) {
    const TempDir dir;
    const auto saved = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    EXPECT_TRUE(write_text_file_atomic("f", "x"));
    std::filesystem::current_path(saved);
    EXPECT_EQ(read_file(dir / "f"), "x");
}

TEST(WriteTextFileAtomic, TakesNamesOfBackups) {
    const TempDir dir;
    EXPECT_TRUE(write_text_file_atomic(dir / "f~", "x"));
    EXPECT_EQ(read_file(dir / "f~"), "x");
}

// The first file that a process without a standard input opens has descriptor 0.
TEST(Files, AreReadWrittenAndClosedWithoutAStandardInput) {
    const TempDir dir;
    const int saved = ::fcntl(0, F_DUPFD_CLOEXEC, 3);
    ::close(0);
    EXPECT_TRUE(write_text_file_atomic(dir / "f", "x"));
    EXPECT_EQ(::fcntl(0, F_GETFD), -1);
    EXPECT_EQ(read_text_file(dir / "f"), "x");
    EXPECT_EQ(::fcntl(0, F_GETFD), -1);
    if (saved >= 0) {
        ::dup2(saved, 0);
        ::close(saved);
    }
}

TEST(WriteTextFileAtomic, NeverShowsAReaderAPartOfAFile) {
    const TempDir dir;
    const std::string path = dir / "f";
    const std::string old_text(100000, 'a');
    const std::string new_text(200000, 'b');
    ASSERT_TRUE(write_text_file_atomic(path, old_text));
    std::atomic<bool> done = false;
    std::jthread writer([&] {
        for (int i = 0; i < 50; ++i) {
            write_text_file_atomic(path, i % 2 == 0 ? new_text : old_text);
        }
        done = true;
    });
    while (!done) {
        const std::string seen = read_text_file(path);
        ASSERT_TRUE(seen == old_text || seen == new_text) << seen.size();
    }
}

}  // namespace
}  // namespace velk::core::fs
