// Slips of the hand.
#pragma once

#include <string_view>

namespace velk::input::amesp {

// Whether `typed` is `known` but for one slip: a letter missing, doubled or wrong, or two neighbours transposed. No
// digit and no sign is ever a slip. Both are normalised.
bool is_one_slip(std::string_view typed, std::string_view known);

}  // namespace velk::input::amesp
