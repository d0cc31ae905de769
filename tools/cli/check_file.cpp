// Reads, fixes and checks one file.
#include "check_file.hpp"

#include <exception>
#include <stdexcept>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/report.hpp>

#include "exhausted_memory.hpp"
#include "line_ends.hpp"
#include "output_file.hpp"
#include "unified_diff.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

// None where that would lose content.
std::optional<std::string> in_canonical_form(const std::string& text, const InputSchema& schema) {
    const AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
    std::string rendered = editor.render();
    if (!canonical_losses(editor, text, rendered).empty()) {
        return std::nullopt;
    }
    return with_line_ends_of(text, std::move(rendered));
}

// Fixes the text, and the file unless the fixes are only to be shown. What is left to be found in it is returned.
Diagnosis fix(const Input& input, const SchemaSource& schema, const FileCheck& check, std::string& text,
              FileReport& report) {
    FixResult result = fix_all(text, schema, *check.fixes);
    if (result.text == text) {
        return std::move(result.remaining);
    }
    if (check.canonical) {
        std::optional<std::string> canonical = in_canonical_form(result.text, schema.rules);
        if (!canonical) {
            report.trouble = "'" + input.name + "' is left as it is: canonical form would lose content";
            return diagnose(text, schema);
        }
        result.text = std::move(*canonical);
        result.remaining = diagnose(result.text, schema);
    }
    if (check.diff) {
        report.diff = unified_diff(text, result.text, input.name);
    } else {
        report.warning = write_output_file(input.path, result.text, check.force);
    }
    text = std::move(result.text);
    report.fixed = true;
    return std::move(result.remaining);
}

Diagnosis checked(const Input& input, const SchemaSource& schema, const FileCheck& check, std::string& text,
                  FileReport& report) {
    try {
        if (check.fixes) {
            return fix(input, schema, check, text, report);
        }
    } catch (const std::runtime_error& error) {
        report.trouble = error.what();
        report.failed = true;
    }
    return diagnose(text, schema);
}

void count(const std::vector<Diagnostic>& diagnostics, FileReport& report) {
    for (const Diagnostic& diagnostic : diagnostics) {
        report.errors += diagnostic.severity == Severity::error ? 1 : 0;
        report.warnings += diagnostic.severity == Severity::warning ? 1 : 0;
    }
}

void check_into(FileReport& report, const Input& input, const SchemaSource& schema, const FileCheck& check) {
    std::string text;
    Diagnosis diagnosis;
    try {
        text = read_input(input);
    } catch (const std::runtime_error& error) {
        report.unreadable = true;
        report.failed = true;
        report.trouble = error.what();
    }
    const std::string unreadable = report.trouble;
    if (!report.unreadable) {
        diagnosis = checked(input, schema, check, text, report);
        count(diagnosis.diagnostics, report);
    }
    const FileFindings findings{input.name, text, diagnosis.diagnostics, unreadable};
    report.findings = check.json ? json_report(findings) : text_report(findings, check.color);
}

}  // namespace

FileReport check_file(const Input& input, const SchemaSource& schema, const FileCheck& check) {
    FileReport report;
    try {
        check_into(report, input, schema, check);
        return report;
    } catch (const std::exception& error) {
        FileReport failed;
        failed.unreadable = true;
        failed.failed = true;
        failed.fixed = report.fixed;
        failed.trouble = "cannot check '" + input.name + "': " + reason_of(error);
        return failed;
    }
}

}  // namespace amesp_inp
