// Finds the suite's data files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <velk/core/resource_export.hpp>

namespace velk::core::resource {

// The value of an environment variable; empty when it is not set.
VELK_CORE_RESOURCE_EXPORT std::string getenv_string(const char* name);

// Whether `path` names an existing regular file, symbolic links followed.
VELK_CORE_RESOURCE_EXPORT bool is_regular_file_path(const std::string& path);

// Where `locate_file` looks after the hint and the extra directories; flags, to be added up.
inline constexpr std::int32_t search_working_directory = 1;
inline constexpr std::int32_t search_installation = 2;      // share/velk beside the library directory
inline constexpr std::int32_t search_data_directories = 4;  // velk/ in the user's and the system's (XDG)

// The full path of the first regular file found for `relative_path`; empty when there is none or `relative_path` is
// empty. Searched in this order, as far as `options` say:
//   1. `hint`, always: the file itself when it names a regular file, else `relative_path` below it;
//   2. `relative_path` below each of `extra_directories`, always;
//   3. below the working directory (search_working_directory);
//   4. below velk/ in the user's data directory, $XDG_DATA_HOME or ~/.local/share (search_data_directories);
//   5. below share/velk of the installation, found from where this library was loaded (search_installation);
//   6. below velk/ in each of $XDG_DATA_DIRS, or /usr/local/share and /usr/share (search_data_directories).
// Empty directory names are skipped, and so are those in XDG variables that are not absolute.
VELK_CORE_RESOURCE_EXPORT std::string locate_file(const std::string& relative_path, const std::string& hint,
                                                  const std::vector<std::string>& extra_directories,
                                                  std::int32_t options);

}  // namespace velk::core::resource
