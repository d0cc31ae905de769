// Where the schema of the process comes from. Each case runs in a process of its own: the default is made once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <thread>
#include <vector>
#include <velk/input/amesp/schema.hpp>

#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

using test::TempDir;
using test::write_file;

constexpr const char* variable = "VELK_AMESP_INP_SCHEMA_YAML";

class DefaultSchema : public testing::Test {
protected:
    DefaultSchema() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        ::unsetenv(variable);
        ::unsetenv("XDG_DATA_HOME");
        ::setenv("HOME", dir.path().c_str(), 1);
        ::setenv("XDG_DATA_DIRS", (dir / "none").c_str(), 1);
    }

    std::string make_user_schema(const std::string& yaml) {
        const std::string path = dir / ".local/share/velk/schemas/input/amesp.yaml";
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        write_file(path, yaml);
        return path;
    }

    const TempDir dir;
};

// The body of a child process: exits with 0 when `holds`.
#define EXPECT_IN_CHILD(statements) EXPECT_EXIT({statements}, testing::ExitedWithCode(0), "")

TEST_F(DefaultSchema, PathIsTheOneInTheVariableWhenItNamesARegularFile) {
    write_file(dir / "mine.yaml", "");
    ::setenv(variable, (dir / "mine.yaml").c_str(), 1);
    EXPECT_EQ(resolve_schema_path(""), dir / "mine.yaml");
    EXPECT_EQ(resolve_schema_path(dir / "hint"), dir / "mine.yaml");
}

TEST_F(DefaultSchema, PathIsSearchedForWhenTheVariableNamesNoRegularFile) {
    const std::string user = make_user_schema("");
    for (const std::string& value : {std::string(), dir.path(), dir / "missing"}) {
        ::setenv(variable, value.c_str(), 1);
        EXPECT_EQ(resolve_schema_path(""), user) << value;
    }
    write_file(dir / "hint.yaml", "");
    EXPECT_EQ(resolve_schema_path(dir / "hint.yaml"), dir / "hint.yaml");
}

TEST_F(DefaultSchema, PathIsTheInstalledOneWhenTheUserHasNone) {
    EXPECT_TRUE(std::filesystem::equivalent(resolve_schema_path(""),
                                            VELK_BINARY_DIRECTORY "/share/velk/schemas/input/amesp.yaml"));
}

TEST_F(DefaultSchema, IsNeverTakenFromTheWorkingDirectory) {
    const std::string installed = resolve_schema_path("");
    for (const char* const name : {"schemas/input/amesp.yaml", "velk/schemas/input/amesp.yaml", "amesp.yaml"}) {
        const std::string path = dir / "here/" + name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        write_file(path, "directives: {only-here: }");
    }
    EXPECT_IN_CHILD({
        std::filesystem::current_path(dir / "here");
        const bool holds = resolve_schema_path("") == installed && !default_schema().is_known_directive("only-here");
        std::_Exit(holds ? 0 : 1);
    });
}

TEST_F(DefaultSchema, IsLoadedOnceFromTheFileFound) {
    write_file(dir / "mine.yaml", "directives: {only-mine: }");
    EXPECT_IN_CHILD({
        ::setenv(variable, (dir / "mine.yaml").c_str(), 1);
        const InputSchema& first = default_schema();
        write_file(dir / "mine.yaml", "directives: {changed: }");
        const bool holds = first.is_known_directive("only-mine") && &default_schema() == &first;
        std::_Exit(holds ? 0 : 1);
    });
}

TEST_F(DefaultSchema, IsTriedAgainAfterAFailure) {
    write_file(dir / "mine.yaml", "directives: [");
    EXPECT_IN_CHILD({
        ::setenv(variable, (dir / "mine.yaml").c_str(), 1);
        int failures = 0;
        for (int i = 0; i < 3; ++i) {
            try {
                default_schema();
            } catch (const std::runtime_error& error) {
                failures += std::string(error.what()).starts_with("failed to load AMESP input schema '") ? 1 : 0;
            }
        }
        write_file(dir / "mine.yaml", "directives: {fixed: }");
        std::_Exit(failures == 3 && default_schema().is_known_directive("fixed") ? 0 : 1);
    });
}

TEST_F(DefaultSchema, IsEmptyWhenThereIsNoFileAnywhere) {
    // The child loads the libraries from a place that has no data beside it.
    std::filesystem::copy(VELK_BINARY_DIRECTORY "/lib", dir / "lib",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks);
    ::setenv("LD_LIBRARY_PATH", (dir / "lib").c_str(), 1);
    EXPECT_IN_CHILD({
        const bool holds = resolve_schema_path("").empty() && default_schema().empty() &&
                           &default_schema() == &default_schema() && !default_schema().is_known_directive("maxcore");
        std::_Exit(holds ? 0 : 1);
    });
    ::unsetenv("LD_LIBRARY_PATH");
}

TEST_F(DefaultSchema, IsOneObjectForAllThreads) {
    EXPECT_IN_CHILD({
        std::vector<const InputSchema*> seen(16);
        {
            std::vector<std::jthread> threads;
            for (const InputSchema*& place : seen) {
                threads.emplace_back([&place] { place = &default_schema(); });
            }
        }
        const bool same = std::all_of(seen.begin(), seen.end(), [&](const auto* one) { return one == seen[0]; });
        std::_Exit(same && !seen[0]->empty() ? 0 : 1);
    });
}

}  // namespace
}  // namespace velk::input::amesp
