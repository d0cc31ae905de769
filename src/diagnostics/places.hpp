// Places in a text as ranges.
#pragma once

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

TextRange range_of(const TextPositions& text, const SourceLocation& location);

// Of the text of a line, without the white space around it; of a line without text, its beginning.
TextRange range_of_line(const TextPositions& text, std::uint64_t number);

// The lines of the format: a line end at the end of the text starts no further one.
std::uint64_t last_line(const TextPositions& text);

}  // namespace velk::input::amesp
