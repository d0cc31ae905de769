// What of a text may reach a terminal.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// The control characters that may stay.
enum class Layout { none, tabs, lines };  // `lines`: tabs and line feeds

// Takes the longest beginning of `text` that a terminal only shows, or else its first character, for which '?' is given
// back: a control character, one that turns the direction of writing, or a byte that is no UTF-8. `text` is not empty.
std::string_view take_printable(std::string_view& text, Layout layout = Layout::none);

void append_printable(std::string& out, std::string_view text, Layout layout = Layout::none);

}  // namespace amesp_inp
