// Findings as text, in the compilers' format.
#pragma once

#include <string>

#include "finding.hpp"

namespace amesp_inp {

// FILE:LINE:COLUMN: SEVERITY: MESSAGE [CODE], with an excerpt, notes and helps below. Nothing for a file that could not
// be read.
std::string text_report(const FileFindings& file, bool color);

// Whether to use colours on a stream, "always", "never" or "auto": on a terminal, unless NO_COLOR says otherwise.
bool use_color(const std::string& when, int descriptor);

}  // namespace amesp_inp
