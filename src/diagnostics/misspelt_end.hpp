// Lines such as 'edn' and 'end xyz', which end no section.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_misspelt_ends(const DetectorInput& input);

}  // namespace velk::input::amesp
