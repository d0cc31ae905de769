// Coordinates as text: ten decimals, a few multiplications each.
#pragma once

#include <cstddef>
#include <string_view>

namespace velk::input::amesp {

inline constexpr int coordinate_decimals = 10;

// No coordinate written here takes more bytes: a sign, six digits, a point, the decimals.
inline constexpr std::size_t longest_coordinate = 1 + 6 + 1 + coordinate_decimals;
static_assert(longest_coordinate == std::string_view("-524287.0123456789").size());

// Writes to `out`, which has room for `longest_coordinate` bytes, what printf prints for "%.10f", and returns the end
// of it; null, with nothing said of the bytes, for a value of 2^19 and above, an infinity or a NaN.
char* write_coordinate(char* out, double value) noexcept;

}  // namespace velk::input::amesp
