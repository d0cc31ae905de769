// Names that a user may have meant by one that the schema does not know.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/schema.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "diagnostics/near_names.hpp"

namespace velk::input::amesp {

struct NameHints {
    // Texts of `help:` lines: the nearest names of the right kind, aliases and prefixed tokens included, and what else
    // the name is known as.
    std::vector<std::string> helps;
    // The nearest name when there is one alone; of several spellings of one name that which a slip parts from it; else
    // empty.
    std::string suggestion;
};

// Asked for names that a document gives, in any order. Keeps what it needs to know of the schema, which must outlive
// it.
class NameHinter {
public:
    explicit NameHinter(const InputSchema& schema) : schema_(schema) {}

    NameHints for_directive(std::string_view name);
    NameHints for_token(std::string_view name);
    NameHints for_section(std::string_view name);
    NameHints for_entry(std::string_view section, std::string_view name);

private:
    NearNames& near_entries(const SectionSpec& section);

    const InputSchema& schema_;
    std::optional<NearNames> directives_;
    std::optional<NearNames> tokens_;
    std::optional<NearNames> sections_;
    std::map<const SectionSpec*, NearNames> entries_;
    std::optional<StringMap<std::vector<std::string_view>>> sections_by_entry_;
};

}  // namespace velk::input::amesp
