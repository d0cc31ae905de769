// What canonical rendering does to a file beyond spelling and spacing.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/editor.hpp>

#include "finding.hpp"

namespace amesp_inp {

// Content that the canonical text of an edited document would lose, or that would be read back as something else, as
// errors: where the document cannot be written as it is. `text` is what it was read from, empty for a new one;
// `rendered` is the document's own rendering.
std::vector<Finding> inexpressible(const velk::input::amesp::AIPEditor& editor, std::string_view text,
                                   std::string_view rendered);

// Those, and, as warnings, what rendering moves, rounds or repairs, for a document read from `text` and not edited.
std::vector<Finding> rendering_changes(const velk::input::amesp::AIPEditor& editor, std::string_view text,
                                       std::string_view rendered);

}  // namespace amesp_inp
