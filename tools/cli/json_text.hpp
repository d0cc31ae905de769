// Strings and numbers as JSON spells them.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// With its quotes and escapes; bytes that are no UTF-8 become U+FFFD.
std::string json_string(std::string_view text);

// The shortest text that is read back as the number; "null" for one that is not finite.
std::string json_number(double value);

}  // namespace amesp_inp
