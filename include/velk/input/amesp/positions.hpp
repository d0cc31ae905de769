// Places in a text, in the units in which editors and other programs count columns.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// What a column counts. A byte that is part of no well-formed UTF-8 character counts as one U+FFFD, which is what a
// program shows that reads the text as UTF-8: 1 byte, but 3 units of UTF-8 and 1 of UTF-16 and UTF-32.
enum class ColumnUnit : std::int32_t { byte = 0, utf8 = 1, utf16 = 2, utf32 = 3 };

// Lines from 1, columns from 1.
struct Position {
    std::uint64_t line = 1;
    std::uint64_t column = 1;

    bool operator==(const Position&) const = default;
};

// A column of a line (without its line end) in bytes, as another column, and back. A column within a character is that
// of its first byte or unit; one past the end of the line is the end, the column after its last character. Time is in
// proportion to the part of the line before the column, but constant for columns in bytes.
VELK_AMESP_INP_EXPORT std::uint64_t column_from_bytes(std::string_view line, std::uint64_t byte_column,
                                                      ColumnUnit unit);
VELK_AMESP_INP_EXPORT std::uint64_t column_to_bytes(std::string_view line, std::uint64_t column, ColumnUnit unit);

// What ends a line: to the format a line feed, with the carriage return before it; to editors a lone carriage return,
// too.
enum class LineEnds : std::int32_t { format = 0, editor = 1 };

// The lines of a text, to find places in it. Holds views into the text, which must outlive it; made in one pass, with
// eight bytes for each line. Never changed afterwards, so that any number of threads may ask.
class TextPositions {
public:
    VELK_AMESP_INP_EXPORT explicit TextPositions(std::string_view text, LineEnds ends = LineEnds::format);

    std::string_view text() const noexcept { return text_; }
    // At least 1; a line end at the end of the text starts a further line, which is empty.
    std::uint64_t line_count() const noexcept { return begins_.size(); }
    // Without its line end. Empty for a line that is not there.
    VELK_AMESP_INP_EXPORT std::string_view line(std::uint64_t number) const;

    // The position of a byte; one in a line end, or past the end of the text, is the end of the line.
    VELK_AMESP_INP_EXPORT Position position_of(std::uint64_t offset, ColumnUnit unit = ColumnUnit::byte) const;
    // The byte at a position, never past the end of its line; of a line after the last, the size of the text.
    VELK_AMESP_INP_EXPORT std::uint64_t offset_of(const Position& position, ColumnUnit unit = ColumnUnit::byte) const;

private:
    std::string_view text_;
    std::vector<std::uint64_t> begins_;
};

}  // namespace velk::input::amesp
