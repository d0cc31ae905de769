// Names that a user may have meant by one that the schema does not know.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

// Each returns the texts of `help:` lines: the nearest names of the right kind, aliases and prefixed tokens included,
// and what else the name is known as.
std::vector<std::string> hints_for_directive(const velk::input::amesp::InputSchema& schema, std::string_view name);
std::vector<std::string> hints_for_token(const velk::input::amesp::InputSchema& schema, std::string_view name);
std::vector<std::string> hints_for_section(const velk::input::amesp::InputSchema& schema, std::string_view name);
std::vector<std::string> hints_for_entry(const velk::input::amesp::InputSchema& schema, std::string_view section,
                                         std::string_view name);

}  // namespace amesp_inp
