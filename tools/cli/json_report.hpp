// Findings as JSON; docs/json.md describes it.
#pragma once

#include <string>

#include "finding.hpp"

namespace amesp_inp {

// What stands before the files of the report.
std::string json_report_head(const std::string& schema_path);

// One file of the report, without surrounding white space. Bytes that are not UTF-8 become U+FFFD.
std::string json_report(const FileFindings& file);

}  // namespace amesp_inp
