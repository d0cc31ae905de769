// The 'end' lines that an input lacks.
#pragma once

#include <string>
#include <string_view>
#include <velk/input/amesp/schema.hpp>

#include "fixes.hpp"

namespace amesp_inp {

// `text` with an 'end' line in every section that swallows a later directive, method line or section, unless lines that
// follow would then stand outside of every section; and in a last section that is open and swallows none.
std::string with_missing_ends(std::string_view text, const velk::input::amesp::InputSchema& schema, Fixes fixes);

}  // namespace amesp_inp
