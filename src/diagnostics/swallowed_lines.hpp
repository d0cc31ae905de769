// What follows from an 'end' that is missing or misspelt.
#pragma once

#include <vector>

#include "diagnostics/detected.hpp"
#include "diagnostics/section_ends.hpp"

namespace velk::input::amesp {

struct EndFinding {
    EndFault fault;
    bool is_never_ended = false;  // the text ends within the section
    std::vector<Extent> covers;
    std::vector<std::string_view> explains;
};

// All faults of the text, misspelt ends and missing ones, with what follows from each.
std::vector<EndFinding> find_end_findings(const DetectorInput& input);

}  // namespace velk::input::amesp
