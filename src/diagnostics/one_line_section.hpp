// Entries in the header of their section.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_one_line_sections(const DetectorInput& input);

}  // namespace velk::input::amesp
