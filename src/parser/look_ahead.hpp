// A look at the lines that a section's body still has, so that its list is made once in the size it needs.
#pragma once

#include <cstddef>
#include <string_view>

#include <velk/core/text_view.hpp>

#include "model/key.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {

// How many lines up to the end of a section, or of the text, may become records: those of at least `shortest` bytes
// that are no comment. Memory for so many is less than what the records or the warnings about them will need.
inline std::size_t records_ahead(std::string_view text, std::size_t shortest) {
    std::size_t count = 0;
    for (std::string_view line; core::text::take_line(text, line);) {
        std::size_t begin = 0;
        while (begin < line.size() && core::text::is_space(line[begin])) {
            ++begin;
        }
        if (begin == line.size()) {
            continue;
        }
        const char first = line[begin];
        if (to_lower(first) == 'e' && is_section_end(core::text::trim_view(line))) {
            break;
        }
        if (line.size() - begin >= shortest && first != '#' && first != ';') {
            ++count;
        }
    }
    return count;
}

}  // namespace velk::input::amesp
