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

// The same for a mistake on the command line, with the verb that it was made with (empty: none) and where its help is.
void complain_about_usage(const std::string& verb, const std::string& message);

// `text` without what a terminal would act on: control characters, those of UTF-8 included, become '?', a tab stays.
void append_printable(std::string& out, std::string_view text);

}  // namespace amesp_inp
