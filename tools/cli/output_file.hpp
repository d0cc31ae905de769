// The files that the program writes, and those that it does not replace unless it is told to.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// Makes the file or replaces its content, atomically. Returns a warning, mostly empty. Throws std::runtime_error,
// "cannot write 'NAME': REASON", also for a file that is write-protected or has several hard links, unless `force` is
// set.
std::string write_output_file(const std::string& path, std::string_view text, bool force);

// Why the file is not replaced: it is write-protected or has several hard links. Empty: it may be.
std::string guard_of(const std::string& path);

// These throw as `write_output_file` does.
void refuse_guarded(const std::string& path);
void refuse_existing(const std::string& path);                            // a file of that name, whatever it is
void refuse_same_file(const std::string& path, const std::string& read);  // the file that was read, by whatever name

}  // namespace amesp_inp
