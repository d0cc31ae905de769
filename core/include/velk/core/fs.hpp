// Reads and writes whole files.
#pragma once

#include <string>
#include <string_view>

#include <velk/core/fs_export.hpp>

namespace velk::core::fs {

// All bytes of the file, unchanged, also of files whose size is not known beforehand (pipes, /proc). Throws
// std::runtime_error with the system's description of the failure, without the path, such as
// "No such file or directory"; a directory is "Is a directory".
VELK_CORE_FS_EXPORT std::string read_text_file(const std::string& path);

// Replaces the content of the file at `path`, or makes the file, so that readers see the old bytes or the new ones and
// nothing between, also after a crash: the bytes go to a temporary file in the same directory, are synced, and the
// temporary file is renamed over the target. An existing file keeps its permission bits (owner and group where the
// process may set them); a symbolic link stays and the file it points to is replaced. Returns false, with the target
// untouched and no temporary file left, when any step fails or the target is no regular file; only when nothing but the
// last step, the sync of the directory, fails does the file hold the new bytes. Throws nothing but std::bad_alloc.
VELK_CORE_FS_EXPORT bool write_text_file_atomic(const std::string& path, std::string_view content);

}  // namespace velk::core::fs
