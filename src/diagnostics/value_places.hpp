// Where names and values stand in their lines.
#pragma once

#include <string_view>

namespace velk::input::amesp {

// As the parser reads them. A value that is not there is empty.
struct NameAndValue {
    std::string_view name;
    std::string_view value;
};

// In a trimmed line that is a directive.
NameAndValue directive_words(std::string_view line);

// In a trimmed line of a section of entries.
NameAndValue entry_words(std::string_view line);

}  // namespace velk::input::amesp
