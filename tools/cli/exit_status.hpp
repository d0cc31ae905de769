// What the program tells its caller.
#pragma once

namespace amesp_inp {

constexpr int exit_clean = 0;     // done, nothing at or above the fail level
constexpr int exit_findings = 1;  // findings, or what was asked for is not there
constexpr int exit_trouble = 2;   // usage error, unreadable file, unusable schema, failed write

}  // namespace amesp_inp
