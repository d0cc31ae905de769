// Columns in bytes and in units of UTF-8, UTF-16 and UTF-32, and the lines of a text.
#include <velk/input/amesp/positions.hpp>

#include <algorithm>
#include <cstddef>

#include "model/utf8.hpp"

namespace velk::input::amesp {
namespace {

// In all units but bytes.
std::uint64_t units_of(const Character& character, ColumnUnit unit) {
    constexpr std::uint64_t replacement_in_utf8 = 3;
    if (unit == ColumnUnit::utf8) {
        return character.valid ? character.bytes : replacement_in_utf8;
    }
    return unit == ColumnUnit::utf16 && character.bytes == 4 ? 2 : 1;
}

// Both columns of a place, from 0.
struct Columns {
    std::size_t bytes = 0;
    std::uint64_t units = 0;
};

// The last place between characters for which `is_within` still holds, that place itself always being one.
template <class IsWithin>
Columns walk(std::string_view line, ColumnUnit unit, IsWithin is_within) {
    Columns at;
    while (at.bytes < line.size()) {
        const Character character = first_character(line.substr(at.bytes));
        const Columns next{at.bytes + character.bytes, at.units + units_of(character, unit)};
        if (!is_within(next)) {
            break;
        }
        at = next;
    }
    return at;
}

// The column of the first byte of the character that a column is in. A byte that begins a character is part of no other
// one, so that a look at the bytes right before is enough.
std::uint64_t character_column(std::string_view line, std::uint64_t column) {
    constexpr std::size_t most_before = 3;
    const auto at =
        static_cast<std::size_t>(std::min<std::uint64_t>(std::max<std::uint64_t>(column, 1) - 1, line.size()));
    for (std::size_t before = 1; before <= std::min(at, most_before); ++before) {
        if (first_character(line.substr(at - before)).bytes > before) {
            return at - before + 1;
        }
    }
    return at + 1;
}

}  // namespace

std::uint64_t column_from_bytes(std::string_view line, std::uint64_t byte_column, ColumnUnit unit) {
    if (unit == ColumnUnit::byte) {
        return character_column(line, byte_column);
    }
    return walk(line, unit, [&](const Columns& next) { return next.bytes < byte_column; }).units + 1;
}

std::uint64_t column_to_bytes(std::string_view line, std::uint64_t column, ColumnUnit unit) {
    if (unit == ColumnUnit::byte) {
        return character_column(line, column);
    }
    return walk(line, unit, [&](const Columns& next) { return next.units < column; }).bytes + 1;
}

TextPositions::TextPositions(std::string_view text, LineEnds ends) : text_(text), begins_{0} {
    const std::string_view marks = ends == LineEnds::editor ? std::string_view("\n\r") : std::string_view("\n");
    for (std::size_t end = text.find_first_of(marks); end != std::string_view::npos;
         end = text.find_first_of(marks, begins_.back())) {
        const bool two_bytes = text[end] == '\r' && text.substr(end + 1).starts_with('\n');
        begins_.push_back(end + (two_bytes ? 2 : 1));
    }
}

std::string_view TextPositions::line(std::uint64_t number) const {
    if (number < 1 || number > begins_.size()) {
        return {};
    }
    const std::uint64_t begin = begins_[number - 1];
    const bool is_last = number == begins_.size();
    std::string_view line = text_.substr(begin, (is_last ? text_.size() : begins_[number]) - begin);
    if (!is_last && line.ends_with('\n')) {
        line.remove_suffix(1);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    } else if (!is_last) {
        line.remove_suffix(1);  // a lone carriage return
    }
    return line;
}

Position TextPositions::position_of(std::uint64_t offset, ColumnUnit unit) const {
    const auto after = std::upper_bound(begins_.begin(), begins_.end(), offset);
    const auto number = static_cast<std::uint64_t>(after - begins_.begin());
    return {number, column_from_bytes(line(number), offset - begins_[number - 1] + 1, unit)};
}

std::uint64_t TextPositions::offset_of(const Position& position, ColumnUnit unit) const {
    if (position.line > begins_.size()) {
        return text_.size();
    }
    const std::uint64_t number = std::max<std::uint64_t>(position.line, 1);
    return begins_[number - 1] + column_to_bytes(line(number), position.column, unit) - 1;
}

}  // namespace velk::input::amesp
