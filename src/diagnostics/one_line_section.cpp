// Entries in the header of their section.
#include "diagnostics/one_line_section.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>

#include "diagnostics/header_entries.hpp"
#include "diagnostics/line_ends.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/swallowed_lines.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// Replaces what follows the name: every entry on a line of its own.
TextEdit spread_out(const LineTable& lines, std::size_t line, const HeaderEntries& header, bool with_end) {
    const std::string new_line = std::string(line_end_like(lines, line)) + std::string(indentation(lines.raw(line)));
    std::string text;
    for (const std::string_view entry : header.entries) {
        text += new_line + "  ";
        text += entry;
    }
    text += with_end ? new_line + "end" : "";
    const char* const after_name = header.name.data() + header.name.size();
    const char* const end = header.words.data() + header.words.size();
    return edit_of(lines, {after_name, static_cast<std::size_t>(end - after_name)}, std::move(text));
}

Diagnostic diagnostic_of(const DetectorInput& input, std::size_t line, const HeaderEntries& header, bool is_whole) {
    const std::string section = shown_name(">" + std::string(header.name));
    Diagnostic diagnostic;
    diagnostic.severity = Severity::error;
    diagnostic.code = codes::inp::one_line_section;
    diagnostic.message = is_whole
                             ? "Section " + section +
                                   " stands on one line: its entries are lost, and what follows is read as part of it."
                             : "Entries in the header of section " + section + " are lost.";
    diagnostic.range = range_in(input, line, header.words);
    diagnostic.subject = {std::string(subjects::section), {}, input.schema.rules.canonical_section(header.name)};
    diagnostic.help.emplace_back("write every entry, and 'end', on a line of its own");
    const bool is_split = !header.entries.empty() || header.words.size() == std::string_view("end").size();
    if (is_split) {
        diagnostic.fixes.push_back({"write every entry on a line of its own",
                                    Applicability::likely,
                                    {spread_out(input.lines, line, header, is_whole)}});
    }
    return diagnostic;
}

// But for sections that are whole.
void add_entries_in_headers(const DetectorInput& input, const std::vector<std::size_t>& whole, Detections& found) {
    for (const Section& section : input.document.sections) {
        const std::size_t line = section.location->line - 1;
        if (section.arguments.empty() || section.parse_mode != SectionParseMode::key_value ||
            std::binary_search(whole.begin(), whole.end(), line)) {
            continue;
        }
        const HeaderEntries header = split_header(trim_view(input.lines.raw(line)), input.schema.rules);
        if (header.entries.empty()) {
            continue;
        }
        Diagnostic diagnostic = diagnostic_of(input, line, header, false);
        const Extent words{diagnostic.range->offset, diagnostic.range->length};
        found.push_back({std::move(diagnostic), {words}, {}});
    }
}

}  // namespace

Detections find_one_line_sections(const DetectorInput& input) {
    Detections found;
    std::vector<std::size_t> whole;
    for (EndFinding& finding : find_end_findings(input)) {
        if (finding.fault.kind != EndFault::Kind::one_line) {
            continue;
        }
        whole.push_back(finding.fault.header);
        const HeaderEntries header = split_header(trim_view(input.lines.raw(whole.back())), input.schema.rules);
        found.push_back({diagnostic_of(input, finding.fault.header, header, true), std::move(finding.covers),
                         std::move(finding.explains)});
    }
    add_entries_in_headers(input, whole, found);
    return found;
}

}  // namespace velk::input::amesp
