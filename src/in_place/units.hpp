// Words that name a unit of length.
#pragma once

#include <string_view>

namespace velk::input::amesp::in_place {

// Whether a word of a geometry's header, in any capitals, names a unit other than angstrom: "bohr", "au", "nm", "pm",
// their longer forms, also after a '=' or a ':' and in brackets.
bool names_other_unit(std::string_view word);

}  // namespace velk::input::amesp::in_place
