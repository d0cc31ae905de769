// Where values stand in their lines.
#pragma once

#include <string_view>

namespace velk::input::amesp {

// Of a trimmed line that is a directive. The value as the parser reads it; empty, at the end of the line, without one.
struct DirectiveWords {
    std::string_view name;
    std::string_view value;
};
DirectiveWords directive_words(std::string_view line);

// The value in a trimmed line of a section of entries.
std::string_view entry_value(std::string_view line);

}  // namespace velk::input::amesp
