// What the parts of a line mean to the format, and what they would mean with plain characters.
#pragma once

#include <cstddef>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

// Bytes of a line from where the part before it ends.
struct LinePart {
    std::size_t end = 0;
    Severity severity = Severity::error;                   // of a character in it that is not what it seems
    Applicability applicability = Applicability::certain;  // of writing the plain one
    // Where what else is found in the line follows from it.
    std::size_t explains_from = 0;
    std::size_t explains_to = 0;
};

// Null outside of sections, and for a header.
std::vector<LinePart> parts_of_line(const DetectorInput& input, std::size_t line, const Section* section);

}  // namespace velk::input::amesp
