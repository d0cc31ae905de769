// Names that a user may have meant by one that the schema does not know.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

struct NameHints {
    // Texts of `help:` lines: the nearest names of the right kind, aliases and prefixed tokens included, and what else
    // the name is known as.
    std::vector<std::string> helps;
    // The nearest name when there is one alone, or several spellings of one; else empty.
    std::string suggestion;
};

NameHints hints_for_directive(const velk::input::amesp::InputSchema& schema, std::string_view name);
NameHints hints_for_token(const velk::input::amesp::InputSchema& schema, std::string_view name);
NameHints hints_for_section(const velk::input::amesp::InputSchema& schema, std::string_view name);
NameHints hints_for_entry(const velk::input::amesp::InputSchema& schema, std::string_view section,
                          std::string_view name);

// "did you mean 'A' or 'B'?" for the nearest of `known`, or nothing when none is near.
std::string near_names(std::string_view name, const std::vector<std::string>& known);

}  // namespace amesp_inp
