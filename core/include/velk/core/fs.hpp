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

enum class WriteOutcome {
    not_written,  // the target is untouched
    written,
    not_synced,  // written, but a crash of the machine right now may bring the old file back
};

struct WriteResult {
    WriteOutcome outcome = WriteOutcome::not_written;
    std::string_view reason;  // why not written or not synced, without the path, such as "Permission denied"; static
};

// Replaces the content of the file at `path`, or makes the file, so that readers see the old bytes or the new ones and
// nothing between, also after a crash: the bytes go to a temporary file in the same directory, are synced, the
// temporary file is renamed over the target, and the directory is synced. An existing file keeps its permission bits
// (owner and group where the process may set them); a symbolic link stays and the file it points to is replaced.
// Nothing is written, and no temporary file is left, when any step up to the rename fails or the target is no regular
// file. After the rename the file is written: a directory that then cannot be synced, or that may not be read and so
// not be opened for it, makes it not_synced; one whose file system knows no such sync is left at that. Interrupted
// calls are tried again. No standard stream's number is given to the temporary file. Throws nothing but std::bad_alloc,
// and that before the rename.
VELK_CORE_FS_EXPORT WriteResult write_text_file(const std::string& path, std::string_view content);

// The same; true when the file holds the new bytes.
VELK_CORE_FS_EXPORT bool write_text_file_atomic(const std::string& path, std::string_view content);

}  // namespace velk::core::fs
