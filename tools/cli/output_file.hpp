// The files that the program writes.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// Makes the file or replaces its content, atomically. Returns a warning, mostly empty. Throws std::runtime_error,
// "cannot write 'NAME': REASON".
std::string write_output_file(const std::string& path, std::string_view text);

}  // namespace amesp_inp
