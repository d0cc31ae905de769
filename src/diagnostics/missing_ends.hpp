// The 'end' lines that an input lacks.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

struct MissingEnd {
    std::uint64_t header = 0;  // the line of the section that lacks it
    Fix fix;                   // certain where a known line shows that it was meant, or at the end of the text
};

// For every section that swallows a later directive, method line or section, unless lines that follow would then stand
// outside of every section; and for a last section that is open and swallows none. In the order of the text.
std::vector<MissingEnd> find_missing_ends(std::string_view text, const InputSchema& schema);

}  // namespace velk::input::amesp
