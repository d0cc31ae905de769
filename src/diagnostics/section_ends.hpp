// Where the 'end' of a section is missing, misspelt or on its header.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <velk/input/amesp/schema.hpp>

#include "in_place/line_table.hpp"

namespace velk::input::amesp {

// Lines are counted from 0.
struct EndFault {
    enum class Kind { missing, misspelt, one_line };

    std::size_t header = 0;                // of the section that lacks its end
    std::size_t last = 0;                  // the line that its end should follow; the misspelt end itself
    std::optional<std::size_t> swallowed;  // what is read as part of the section; none at the end of the text
    Kind kind = Kind::missing;
    bool is_certain = true;  // a known line shows that the end was meant there, or the end of the text does
    bool has_place = true;   // whether it can be told where the end was meant

    bool operator==(const EndFault&) const = default;
};

// For every section that swallows a later directive, method line or section, unless lines that follow would then stand
// outside of every section; and for a last section that is open. In the order of the text.
std::vector<EndFault> find_end_faults(const LineTable& lines, const InputSchema& schema);

// The name in a line that begins with a mark.
std::string_view marked_name(std::string_view trimmed);

}  // namespace velk::input::amesp
