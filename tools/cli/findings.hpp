// What the library says of a text, as findings with a place each.
#pragma once

#include <string_view>
#include <vector>
#include <velk/input/amesp/schema.hpp>

#include "finding.hpp"

namespace amesp_inp {

// Everything that parsing and validation find in `text`, in the order of lines and columns. A fact found by both is one
// finding; what the library gives no place gets one; near names, allowed values and related places are added.
std::vector<Finding> find_all(std::string_view text, const velk::input::amesp::InputSchema& schema);

}  // namespace amesp_inp
