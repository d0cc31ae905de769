// The symbols of the elements.
#pragma once

#include <string_view>

namespace velk::input::amesp {

// The letters that a text begins with.
std::string_view leading_letters(std::string_view text);

// Whether the letters that a label begins with are the symbol of an element, or of a ghost or dummy atom, in any
// capitals: "H", "cl", "C12", "Fe_a", "H(iso=2)", "Bq".
bool begins_with_symbol(std::string_view label);

}  // namespace velk::input::amesp
