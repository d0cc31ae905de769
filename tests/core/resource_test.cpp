// Environment variables and the search for data files.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <velk/core/resource.hpp>

#include "support/temp_dir.hpp"

namespace velk::core::resource {
namespace {

using test::TempDir;
using test::write_file;

constexpr std::int32_t no_places = 0;
const std::string name = "schemas/input/some-test-file.yaml";

std::string make(const std::string& directory) {
    const std::string path = directory + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    write_file(path, "");
    return path;
}

class LocateFile : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("HOME", (dir / "home").c_str(), 1);
        ::unsetenv("XDG_DATA_HOME");
        ::setenv("XDG_DATA_DIRS", (dir / "one:relative::" + (dir / "two")).c_str(), 1);
    }
    const TempDir dir;
};

TEST(GetenvString, GivesTheValueOrAnEmptyString) {
    ::setenv("AMESP_TEST_VARIABLE", "a b", 1);
    EXPECT_EQ(getenv_string("AMESP_TEST_VARIABLE"), "a b");
    ::unsetenv("AMESP_TEST_VARIABLE");
    EXPECT_EQ(getenv_string("AMESP_TEST_VARIABLE"), "");
}

TEST(IsRegularFilePath, HoldsForExistingRegularFilesOnly) {
    const TempDir dir;
    write_file(dir / "f", "");
    std::filesystem::create_symlink("f", dir / "link");
    std::filesystem::create_symlink("absent", dir / "dangling");
    EXPECT_TRUE(is_regular_file_path(dir / "f"));
    EXPECT_TRUE(is_regular_file_path(dir / "link"));
    for (const std::string& path : {dir.path(), dir / "absent", dir / "dangling", std::string("/dev/null"),
                                    std::string(), dir / std::string("f\0", 2)}) {
        EXPECT_FALSE(is_regular_file_path(path)) << path;
    }
}

TEST_F(LocateFile, GivesAnEmptyStringWhenThereIsNone) {
    EXPECT_EQ(locate_file(name, "", {}, 7), "");
    EXPECT_EQ(locate_file("", dir.path(), {dir.path()}, 7), "");
}

TEST_F(LocateFile, TakesAHintThatIsAFileForTheAnswer) {
    write_file(dir / "hint.yaml", "");
    EXPECT_EQ(locate_file(name, dir / "hint.yaml", {}, no_places), dir / "hint.yaml");
}

TEST_F(LocateFile, SearchesTheHintThenTheExtraDirectoriesThenTheOthers) {
    const std::string system_second = make(dir / "two/velk");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), system_second);
    const std::string system_first = make(dir / "one/velk");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), system_first);
    const std::string user = make(dir / "home/.local/share/velk");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), user);
    const std::string more = make(dir / "more");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), more);
    const std::string extra = make(dir / "extra");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), extra);
    const std::string hint = make(dir / "hint");
    EXPECT_EQ(locate_file(name, dir / "hint", {dir / "extra", dir / "more"}, 6), hint);
}

TEST_F(LocateFile, PrefersTheUsersDataDirectoryThatTheVariableNames) {
    make(dir / "home/.local/share/velk");
    ::setenv("XDG_DATA_HOME", (dir / "data").c_str(), 1);
    EXPECT_EQ(locate_file(name, "", {}, 6), "");
    const std::string user = make(dir / "data/velk");
    EXPECT_EQ(locate_file(name, "", {}, 6), user);
}

TEST_F(LocateFile, TakesTheUsualDirectoriesWhereTheVariablesAreNotSet) {
    ::unsetenv("HOME");
    EXPECT_EQ(locate_file(name, "", {}, search_data_directories), "");
    ::unsetenv("XDG_DATA_DIRS");
    EXPECT_EQ(locate_file(name, "", {}, search_data_directories), "");
    const std::string extra = make(dir / "extra");
    EXPECT_EQ(locate_file(name, "", {dir / "extra"}, search_data_directories), extra);
}

TEST_F(LocateFile, JoinsDirectoriesThatEndInASlash) {
    const std::string extra = make(dir / "extra");
    EXPECT_EQ(locate_file(name, "", {dir / "extra/"}, no_places), extra);
}

TEST_F(LocateFile, LeavesOutThePlacesThatTheOptionsDoNotName) {
    make(dir / "one/velk");
    EXPECT_EQ(locate_file(name, "", {}, no_places), "");
    EXPECT_EQ(locate_file(name, "", {}, search_installation), "");
    EXPECT_NE(locate_file(name, "", {}, search_data_directories), "");
}

TEST_F(LocateFile, LooksInTheWorkingDirectoryOnlyWhenAsked) {
    make(dir.path());
    make(dir / "velk");
    make(dir / "relative/velk");
    const auto saved = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    const std::string without = locate_file(name, "", {""}, 6);
    const std::string with = locate_file(name, "", {}, search_working_directory);
    std::filesystem::current_path(saved);
    EXPECT_EQ(without, "");
    EXPECT_EQ(with, "./" + name);
}

TEST_F(LocateFile, FindsTheDataOfItsOwnInstallation) {
    const std::string schema = locate_file("schemas/input/amesp.yaml", "", {}, search_installation);
    EXPECT_TRUE(std::filesystem::equivalent(schema, VELK_BINARY_DIRECTORY "/share/velk/schemas/input/amesp.yaml"));
}

TEST_F(LocateFile, PassesOverDirectoriesOfThatName) {
    std::filesystem::create_directories(dir / ("one/velk/" + name));
    const std::string second = make(dir / "two/velk");
    EXPECT_EQ(locate_file(name, "", {}, 6), second);
}

}  // namespace
}  // namespace velk::core::resource
