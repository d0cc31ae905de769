// Turns the lines of an input text into the records of a document.
#pragma once

#include <string_view>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

// The document with the parser's own warnings; nothing is validated. One pass over `text`.
AIPData read_document(std::string_view text, const InputSchema& schema, bool preserve_unknown);

}  // namespace velk::input::amesp
