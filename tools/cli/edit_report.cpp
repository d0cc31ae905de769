// What verbs that edit say of inputs.
#include "edit_report.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <velk/input/amesp/report.hpp>

#include "output.hpp"

namespace amesp_inp {

using namespace velk::input::amesp;

namespace {

void add_file(EditReport& report, const FileFindings& file) {
    report.files += report.files.empty() ? "\n" : ",\n";
    report.files += json_report(file);
    ++report.counts.files;
}

}  // namespace

std::string json_report_end(const ReportCounts& counts) {
    return "\n],\"summary\":{\"files\":" + std::to_string(counts.files) +
           ",\"unreadable\":" + std::to_string(counts.unreadable) + ",\"errors\":" + std::to_string(counts.errors) +
           ",\"warnings\":" + std::to_string(counts.warnings) + "}}\n";
}

bool report_findings(EditReport& report, const Input& input, std::vector<FoundIn> found) {
    const auto is_warning = [](const Diagnostic& finding) { return finding.severity != Severity::error; };
    const std::size_t errors_before = report.counts.errors;
    std::vector<Diagnostic> all;
    for (FoundIn& part : found) {
        if (report.style.quiet) {
            std::erase_if(part.findings, is_warning);
        }
        for (const Diagnostic& finding : part.findings) {
            ++(is_warning(finding) ? report.counts.warnings : report.counts.errors);
        }
        if (report.style.format == "json") {
            std::move(part.findings.begin(), part.findings.end(), std::back_inserter(all));
        } else {
            const std::string text =
                text_report({input.name, part.text, part.findings}, use_color(report.style.color, STDERR_FILENO));
            std::fwrite(text.data(), 1, text.size(), stderr);
        }
    }
    if (report.style.format == "json") {
        add_file(report, {input.name, {}, all});
    }
    return report.counts.errors > errors_before;
}

void report_failure(EditReport& report, const Input& input, const std::string& reason) {
    complain(reason);
    ++report.counts.unreadable;
    add_file(report, {input.name, {}, {}, reason});
}

void finish(const EditReport& report) {
    if (report.style.format == "json") {
        print(json_report_head(report.schema_path) + report.files + json_report_end(report.counts));
    }
}

}  // namespace amesp_inp
