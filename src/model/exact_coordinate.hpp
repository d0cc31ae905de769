// Coordinates as text that loses nothing.
#pragma once

#include <string>

namespace velk::input::amesp {

// Appends the value as rendering writes it when that reads back to the same bits, else the shortest text that does.
// False for a value that no text reads back to: what a reader refuses as too small, and a NaN that is not the usual
// one.
bool append_exact_coordinate(std::string& out, double value);

}  // namespace velk::input::amesp
