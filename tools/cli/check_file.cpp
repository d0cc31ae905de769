// Reads, fixes and checks one file.
#include "check_file.hpp"

#include <exception>
#include <stdexcept>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "findings.hpp"
#include "json_report.hpp"
#include "output_file.hpp"
#include "rendering_changes.hpp"
#include "text_report.hpp"
#include "unified_diff.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

std::string in_canonical_form(const std::string& text, const InputSchema& schema, const std::string& name) {
    const AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
    std::string rendered = editor.render();
    if (!inexpressible(editor, text, rendered).empty()) {
        throw std::runtime_error("'" + name + "' is left as it is: canonical form would lose content");
    }
    return rendered;
}

// Fixes the text, and the file unless the fixes are only to be shown.
void fix(const Input& input, const InputSchema& schema, const FileCheck& check, std::string& text, FileReport& report) {
    std::string better = fixed(text, schema, *check.fixes);
    if (better == text) {
        return;
    }
    if (check.canonical) {
        better = in_canonical_form(better, schema, input.name);
    }
    if (check.diff) {
        report.diff = unified_diff(text, better, input.name);
    } else {
        report.warning = write_output_file(input.path, better, check.force);
    }
    text = std::move(better);
    report.fixed = true;
}

void count(const std::vector<Finding>& findings, FileReport& report) {
    for (const Finding& finding : findings) {
        ++(finding.severity == IssueSeverity::Error ? report.errors : report.warnings);
    }
}

FileReport checked(const Input& input, const InputSchema& schema, const FileCheck& check) {
    FileReport report;
    FileFindings file{input.name, {}, {}, {}};
    try {
        file.text = read_input(input);
    } catch (const std::runtime_error& error) {
        report.unreadable = true;
        report.trouble = file.error = error.what();
    }
    if (!report.unreadable) {
        try {
            if (check.fixes) {
                fix(input, schema, check, file.text, report);
            }
        } catch (const std::runtime_error& error) {
            report.trouble = error.what();
        }
        file.findings = find_all(file.text, schema);
        count(file.findings, report);
    }
    report.findings = check.json ? json_report(file) : text_report(file, check.color);
    return report;
}

}  // namespace

FileReport check_file(const Input& input, const InputSchema& schema, const FileCheck& check) {
    try {
        return checked(input, schema, check);
    } catch (const std::exception& error) {
        FileReport report;
        report.unreadable = true;
        report.trouble = error.what();
        return report;
    }
}

}  // namespace amesp_inp
