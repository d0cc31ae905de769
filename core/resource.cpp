// The search for the suite's data files.
#include <velk/core/resource.hpp>

#include <dlfcn.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <string_view>

#ifndef VELK_CORE_DATA_DIRECTORY
#error "VELK_CORE_DATA_DIRECTORY: the data directory, relative to the directory of this library"
#endif

namespace velk::core::resource {
namespace {

std::string join(std::string_view directory, std::string_view name) {
    std::string path(directory);
    if (!path.ends_with('/')) {
        path += '/';
    }
    path += name;
    return path;
}

// The directory of the file that this code was loaded from, symbolic links resolved; empty when it cannot be told.
std::string library_directory() {
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void*>(&library_directory), &info) == 0) {
        return {};
    }
    std::array<char, PATH_MAX> path{};  // of its own: without memory for one another place would be taken for it
    if (::realpath(info.dli_fname, path.data()) == nullptr) {
        return {};
    }
    const std::string_view file(path.data());
    return std::string(file.substr(0, file.rfind('/')));
}

void add_data_directory(std::vector<std::string>& places, std::string_view directory) {
    if (directory.starts_with('/')) {
        places.push_back(join(directory, "velk"));
    }
}

void add_user_data(std::vector<std::string>& places) {
    if (const std::string home = getenv_string("XDG_DATA_HOME"); !home.empty()) {
        add_data_directory(places, home);
    } else if (const std::string user = getenv_string("HOME"); !user.empty()) {
        add_data_directory(places, join(user, ".local/share"));
    }
}

void add_installation_data(std::vector<std::string>& places) {
    if (const std::string directory = library_directory(); !directory.empty()) {
        places.push_back(join(directory, VELK_CORE_DATA_DIRECTORY));
    }
}

void add_system_data(std::vector<std::string>& places) {
    const std::string variable = getenv_string("XDG_DATA_DIRS");
    std::string_view rest = variable.empty() ? std::string_view("/usr/local/share:/usr/share") : variable;
    while (!rest.empty()) {
        const std::string_view directory = rest.substr(0, rest.find(':'));
        add_data_directory(places, directory);
        rest.remove_prefix(std::min(directory.size() + 1, rest.size()));
    }
}

std::vector<std::string> places_to_search(const std::string& hint, const std::vector<std::string>& extra_directories,
                                          std::int32_t options) {
    std::vector<std::string> places{hint};
    places.insert(places.end(), extra_directories.begin(), extra_directories.end());
    if ((options & search_working_directory) != 0) {
        places.emplace_back(".");
    }
    if ((options & search_data_directories) != 0) {
        add_user_data(places);
    }
    if ((options & search_installation) != 0) {
        add_installation_data(places);
    }
    if ((options & search_data_directories) != 0) {
        add_system_data(places);
    }
    return places;
}

}  // namespace

std::string getenv_string(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : std::string();
}

bool is_regular_file_path(const std::string& path) {
    struct stat status {};
    return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string locate_file(const std::string& relative_path, const std::string& hint,
                        const std::vector<std::string>& extra_directories, std::int32_t options) {
    if (relative_path.empty()) {
        return {};
    }
    if (is_regular_file_path(hint)) {
        return hint;
    }
    for (const std::string& place : places_to_search(hint, extra_directories, options)) {
        if (std::string path = join(place, relative_path); !place.empty() && is_regular_file_path(path)) {
            return path;
        }
    }
    return {};
}

}  // namespace velk::core::resource
