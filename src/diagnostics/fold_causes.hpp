// One finding for one cause.
#pragma once

#include <vector>

#include "diagnostics/detected.hpp"

namespace velk::input::amesp {

// The detections and, of the other findings, those that follow from none of them. What follows is left in the list of
// causes of the first detection that explains it, in the order of the text; but what is graver than it stays a finding.
// Every finding must have a range.
std::vector<Diagnostic> fold_causes(Detections detections, std::vector<Diagnostic> others);

}  // namespace velk::input::amesp
