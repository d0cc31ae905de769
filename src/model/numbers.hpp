// Numbers in text, in both directions, as the C library reads and prints them in its classic locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velk::input::amesp {

// What strtol in base 10 makes of the whole text without surrounding white space; nothing when it is no number, has
// anything left over or does not fit.
std::optional<std::int32_t> read_int32(std::string_view text);
std::optional<std::int64_t> read_int64(std::string_view text);

// What strtod makes of the whole text without surrounding white space, every D read as E (the exponents of Fortran);
// nothing when it is no number, has anything left over or is out of range, which strtod also says of a result that
// loses digits for being too small. Infinities and NaN are numbers here.
std::optional<double> read_real(std::string_view text);

// Appends what printf prints for "%.*f" with that many decimals.
void append_fixed(std::string& out, double value, int decimals);

// Appends a decimal integer: no sign unless negative, no padding.
void append_integer(std::string& out, std::int32_t value);

}  // namespace velk::input::amesp
