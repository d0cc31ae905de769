// The line ends of a text.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// `text`, whose lines end with line feeds, with CR LF at their ends where most lines of `model` end so.
std::string with_line_ends_of(std::string_view model, std::string text);

}  // namespace amesp_inp
