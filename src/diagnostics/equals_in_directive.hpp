// Directives written with '='.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_equals_in_directives(const DetectorInput& input);

}  // namespace velk::input::amesp
