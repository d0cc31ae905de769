// What verbs that edit say of inputs: findings as text or as JSON, in the shape that `check` gives them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/diagnostics.hpp>

#include "inputs.hpp"

namespace amesp_inp {

// How findings are printed.
struct FindingStyle {
    std::string format = "text";
    std::string color = "auto";
    bool quiet = false;  // no warnings and no summary
};

struct ReportCounts {
    std::size_t files = 0;
    std::size_t unreadable = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

// What stands after the list of files in a report as JSON.
std::string json_report_end(const ReportCounts& counts);

// The report of one run.
struct EditReport {
    FindingStyle style;
    std::string schema_path;
    std::string files;  // as JSON, as far as it goes
    ReportCounts counts;
};

// Findings and the text that their places are in.
struct FoundIn {
    std::string_view text;
    std::vector<velk::input::amesp::Diagnostic> findings;
};

// Findings of one input, as text on standard error. True when one of them is an error.
bool report_findings(EditReport& report, const Input& input, std::vector<FoundIn> found);

// Says on standard error why nothing became of an input.
void report_failure(EditReport& report, const Input& input, const std::string& reason);

// A report as JSON goes to standard output, at the end.
void finish(const EditReport& report);

}  // namespace amesp_inp
