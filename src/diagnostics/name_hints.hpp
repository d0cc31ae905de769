// Names that a user may have meant by one that the schema does not know.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

struct NameHints {
    // Texts of `help:` lines: the nearest names of the right kind, aliases and prefixed tokens included, and what else
    // the name is known as.
    std::vector<std::string> helps;
    // The nearest name when there is one alone, or several spellings of one; else empty.
    std::string suggestion;
};

NameHints hints_for_directive(const InputSchema& schema, std::string_view name);
NameHints hints_for_token(const InputSchema& schema, std::string_view name);
NameHints hints_for_section(const InputSchema& schema, std::string_view name);
NameHints hints_for_entry(const InputSchema& schema, std::string_view section, std::string_view name);

}  // namespace velk::input::amesp
