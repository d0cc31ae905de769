// Line ends for new lines.
#pragma once

#include <string_view>

#include "in_place/line_table.hpp"

namespace velk::input::amesp {

// The line end of that line; of a last line without one that of the line before it, if there is any.
std::string_view line_end_like(const LineTable& lines, std::size_t line);

// What a line begins with before its text.
std::string_view indentation(std::string_view raw);

}  // namespace velk::input::amesp
