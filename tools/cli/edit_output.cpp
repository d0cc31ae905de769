// Printing and writing edited inputs.
#include "edit_output.hpp"

#include <cstdio>
#include <velk/core/fs.hpp>

#include "text_report.hpp"
#include "unified_diff.hpp"

namespace amesp_inp {
namespace {

void write(const std::string& path, const std::string& text) {
    if (!velk::core::fs::write_text_file_atomic(path, text)) {
        throw std::runtime_error("cannot write '" + path + "'");
    }
}

}  // namespace

void deliver(const EditOutput& output, const Input& input, std::string_view before, const std::string& after) {
    if (output.diff) {
        print(unified_diff(before, after, input.name));
    } else if (!output.path.empty() && output.path != "-") {
        write(output.path, after);
    } else if (output.in_place && input.path != "-") {
        if (before != after) {
            write(input.path, after);
        }
    } else {
        print(after);
    }
}

bool report_findings(const Input& input, const std::string& text, std::vector<Finding> findings) {
    const bool failed = std::any_of(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return finding.severity == IssueSeverity::Error; });
    const std::string report = text_report({input.name, text, "", std::move(findings)}, false);
    std::fwrite(report.data(), 1, report.size(), stderr);
    return failed;
}

}  // namespace amesp_inp
