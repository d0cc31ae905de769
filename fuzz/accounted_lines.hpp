// Where every line of a text went.
#pragma once

#include <string>
#include <string_view>
#include <velk/input/amesp/document.hpp>

namespace velk::fuzz {

// Walks over the lines of a text beside the document that was read from it with everything preserved. Empty when every
// line that is not blank is in exactly one record or list, closes a section, or is a marker without anything after it
// and has a warning, and nothing in the document has no line; else the first line that is not so.
std::string unaccounted_line(std::string_view text, const input::amesp::AIPData& data);

}  // namespace velk::fuzz
