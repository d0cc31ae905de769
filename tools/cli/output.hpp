// The program's two streams: results on standard output, everything else on standard error.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include <velk/input/amesp/report.hpp>

namespace amesp_inp {

using velk::input::amesp::Layout;

// Bytes to standard output, as they are; to a terminal only what it shows.
void print(std::string_view text, Layout layout = Layout::lines);

// As they are also to a terminal: a text of this program, in colours perhaps, whose foreign parts are printable.
void print_styled(std::string_view text);

// Whether to use colours on a stream, "always", "never" or "auto": on a terminal, unless NO_COLOR says otherwise.
bool use_color(const std::string& when, int descriptor);

// False when anything printed so far could not be written.
bool flush_output();

// False when anything said on standard error so far could not be written.
bool messages_are_written();

// One line on standard error: "amesp-inp: MESSAGE". Its line feeds, which come from names and files, are not printed.
void complain(std::string_view message);

// The same for a message of several lines.
void complain_in_lines(std::string_view message);

// The same for a mistake on the command line, with the verb that it was made with (empty: none) and where its help is.
void complain_about_usage(std::string_view verb, std::string_view message);

// An error to complain of in lines: no line feed of its message comes from a name or a file.
class ErrorInLines : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace amesp_inp
