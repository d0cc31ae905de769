// Characters that are not what they seem.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_invisible_characters(const DetectorInput& input);

}  // namespace velk::input::amesp
