// Lines of Cartesian sections that were meant to be atoms and are none.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_lost_atoms(const DetectorInput& input);

}  // namespace velk::input::amesp
