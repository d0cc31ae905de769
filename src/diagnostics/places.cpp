// Places in a text as ranges.
#include "diagnostics/places.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

namespace velk::input::amesp {

TextRange range_of(const TextPositions& text, const SourceLocation& location) {
    const Position start{location.line, location.column};
    return {text.offset_of(start), location.length, start, {location.line, location.column + location.length}};
}

TextRange range_of_line(const TextPositions& text, std::uint64_t number) {
    const std::string_view raw = text.line(number);
    const std::string_view trimmed = core::text::trim_view(raw);
    const std::uint64_t column = trimmed.empty() ? 1 : static_cast<std::uint64_t>(trimmed.data() - raw.data()) + 1;
    return range_of(text, {number, column, trimmed.size()});
}

std::uint64_t last_line(const TextPositions& text) {
    const std::uint64_t count = text.line_count();
    return count > 1 && text.line(count).empty() ? count - 1 : count;
}

}  // namespace velk::input::amesp
