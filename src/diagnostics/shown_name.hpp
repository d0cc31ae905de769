// Names in messages.
#pragma once

#include <string>
#include <string_view>

namespace velk::input::amesp {

// In single quotes; whole up to 80 characters, of a longer one the beginning and "...".
std::string shown_name(std::string_view name);

}  // namespace velk::input::amesp
