// Headers of geometries that give charge and multiplicity in another way.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_bad_headers(const DetectorInput& input);

}  // namespace velk::input::amesp
