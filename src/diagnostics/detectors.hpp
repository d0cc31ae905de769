// All that looks for mistakes in the text itself.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

// Of what begins in the extents of two detections, the first is the cause.
Detections detect(const DetectorInput& input);

}  // namespace velk::input::amesp
