// What the first character of a line, without the white space before it, says of the line.
#pragma once

#include <string_view>

namespace amesp_inp {

// A directive, a method line or a section header, outside of sections.
constexpr bool is_marked(std::string_view text) {
    return text.starts_with('%') || text.starts_with('!') || text.starts_with('>');
}

constexpr bool is_comment(std::string_view text) {
    return text.starts_with('#') || text.starts_with(';') || text.starts_with("//");
}

}  // namespace amesp_inp
