// Remarks after values and method-line tokens.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_remarks_in_values(const DetectorInput& input);

}  // namespace velk::input::amesp
