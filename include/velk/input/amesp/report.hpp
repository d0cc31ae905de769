// Findings as text for people and as JSON for programs. Nothing is printed.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// What was found in one file. Views, which must outlive it.
struct FileFindings {
    std::string_view name;
    std::string_view text;  // the file's content, for excerpts
    std::span<const Diagnostic> diagnostics;
    std::string_view error = {};  // why the file could not be read; empty if it was
};

// FILE:LINE:COLUMN: SEVERITY: MESSAGE [CODE], with an excerpt, helps and related places below; colours are terminal
// escapes. Everything that comes from a file or a name is printable (see below). Nothing for a file without findings.
VELK_AMESP_INP_EXPORT std::string text_report(const FileFindings& file, bool color);

// One object of the list of files in a report; docs/json.md describes it. Bytes that are no UTF-8 become U+FFFD.
VELK_AMESP_INP_EXPORT std::string json_report(const FileFindings& file);
// What stands before that list, with the path of the schema in use.
VELK_AMESP_INP_EXPORT std::string json_report_head(const std::string& schema_path);

// A text as a JSON string, with its quotes and escapes; bytes that are no UTF-8 become U+FFFD.
VELK_AMESP_INP_EXPORT std::string json_string(std::string_view text);
// The shortest text that is read back as the number; "null" for one that is not finite.
VELK_AMESP_INP_EXPORT std::string json_number(double value);

// The control characters that printable text may hold.
enum class Layout { none, tabs, lines };  // `lines`: tabs and line feeds

// Takes the longest beginning of `text` that a terminal only shows, or else its first character, for which '?' is given
// back: a control character, one that turns the direction of writing, or a byte that is no UTF-8. `text` is not empty.
// Allocates nothing; the view is into `text` or of static text.
VELK_AMESP_INP_EXPORT std::string_view take_printable(std::string_view& text, Layout layout = Layout::none);

VELK_AMESP_INP_EXPORT void append_printable(std::string& out, std::string_view text, Layout layout = Layout::none);

}  // namespace velk::input::amesp
