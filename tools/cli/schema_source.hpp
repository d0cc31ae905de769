// The schema that a run of the program uses.
#pragma once

#include <string>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

// The schema at `path`, or the default one when it is empty. Throws std::runtime_error, with a message that says what
// is wrong or where a schema was looked for, when there is none to be had.
velk::input::amesp::InputSchema load_schema(const std::string& path);

}  // namespace amesp_inp
