// Sections without an 'end'.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_missing_ends(const DetectorInput& input);

}  // namespace velk::input::amesp
