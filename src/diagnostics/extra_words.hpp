// Words that nothing reads, and such as are read as something else.
#pragma once

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

Detections find_extra_words(const DetectorInput& input);

}  // namespace velk::input::amesp
