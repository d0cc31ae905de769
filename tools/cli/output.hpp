// The program's two streams: results on standard output, everything else on standard error.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// Bytes to standard output, as they are.
void print(std::string_view text);

// False when anything printed so far could not be written.
bool flush_output();

// One line on standard error: "amesp-inp: MESSAGE".
void complain(std::string_view message);

// `text` without what a terminal would act on: control characters, those of UTF-8 included, become '?', a tab stays.
void append_printable(std::string& out, std::string_view text);

}  // namespace amesp_inp
