// What stands after the name in a header of a section of entries.
#pragma once

#include <string_view>
#include <vector>

#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

struct HeaderEntries {
    std::string_view name;                  // of the section
    std::string_view words;                 // all of them, the 'end' too
    std::vector<std::string_view> entries;  // none where the first word is no known name of an entry
    bool has_end = false;                   // the last word is 'end'
};

// Of a trimmed line that is a header.
HeaderEntries split_header(std::string_view header, const InputSchema& schema);

// Whether all of a section was written on its header.
bool is_one_line_section(std::string_view header, const InputSchema& schema);

}  // namespace velk::input::amesp
