// What a value may be.
#pragma once

#include <string>

#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {

// "allowed values: ..." for a boolean or an enumeration; empty for other types.
std::string allowed_values(const ValueSpec& spec);

}  // namespace velk::input::amesp
