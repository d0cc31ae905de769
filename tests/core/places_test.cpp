// Where a search for a data file looks, in order: this program's own stat stands before that of the C library.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <vector>
#include <velk/core/resource.hpp>

namespace {

std::vector<std::string>* asked = nullptr;  // null: the system answers

}  // namespace

extern "C" __attribute__((visibility("default"))) int stat(const char* path, struct stat* status) noexcept {
    if (asked == nullptr) {
        return reinterpret_cast<int (*)(const char*, struct stat*)>(::dlsym(RTLD_NEXT, "stat"))(path, status);
    }
    asked->emplace_back(path);
    errno = ENOENT;
    return -1;
}

namespace velk::core::resource {
namespace {

using testing::EndsWith;
using testing::Matcher;

const Matcher<std::string> installation = EndsWith("/share/velk/name");
const Matcher<std::string> working_directory = "./name";

// The places asked for "name", that nobody has, without hint and extra directories.
std::vector<std::string> places(std::int32_t options) {
    std::vector<std::string> paths;
    asked = &paths;
    const std::string found = locate_file("name", "", {}, options);
    asked = nullptr;
    EXPECT_EQ(found, "");
    EXPECT_EQ(paths.front(), "");  // the hint itself
    paths.erase(paths.begin());
    return paths;
}

TEST(Places, AreThoseOfTheOptionsInOrder) {
    ::setenv("XDG_DATA_HOME", "/u", 1);
    ::setenv("XDG_DATA_DIRS", "/s:/t", 1);
    const std::vector<std::pair<std::int32_t, std::vector<Matcher<std::string>>>> cases = {
        {0, {}},
        {search_working_directory, {working_directory}},
        {search_installation, {installation}},
        {search_data_directories, {"/u/velk/name", "/s/velk/name", "/t/velk/name"}},
        {search_working_directory + search_installation, {working_directory, installation}},
        {search_installation + search_data_directories, {"/u/velk/name", installation, "/s/velk/name", "/t/velk/name"}},
        {search_working_directory + search_installation + search_data_directories,
         {working_directory, "/u/velk/name", installation, "/s/velk/name", "/t/velk/name"}},
    };
    for (const auto& [options, expected] : cases) {
        EXPECT_THAT(places(options), testing::ElementsAreArray(expected)) << options;
    }
}

TEST(Places, OfTheSystemAreTheUsualOnesWhereNoneAreNamed) {
    ::setenv("XDG_DATA_HOME", "/u", 1);
    for (const bool is_set : {false, true}) {
        ::unsetenv("XDG_DATA_DIRS");
        if (is_set) {
            ::setenv("XDG_DATA_DIRS", "", 1);
        }
        EXPECT_THAT(places(search_data_directories),
                    testing::ElementsAre("/u/velk/name", "/usr/local/share/velk/name", "/usr/share/velk/name"));
    }
}

}  // namespace
}  // namespace velk::core::resource
