// Names given twice.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_repeated_names(const DetectorInput& input);

}  // namespace velk::input::amesp
