// The first two lines of an XYZ file in a Cartesian section.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_pasted_xyz(const DetectorInput& input);

}  // namespace velk::input::amesp
