// Sections without an 'end'.
#include "diagnostics/missing_end.hpp"

#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/line_ends.hpp"
#include "diagnostics/places.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/swallowed_lines.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// An 'end' after the last line of the section, with the indentation of its header.
TextEdit end_after(const LineTable& lines, const EndFault& fault) {
    const std::string_view wanted = line_end_like(lines, fault.last);
    std::string end;
    if (lines.line_end(fault.last).empty()) {
        end = lines.raw(fault.last).ends_with('\r') ? "\n" : wanted;
    }
    end += indentation(lines.raw(fault.header));
    end += "end";
    end += wanted;
    return {lines.begin_of(fault.last + 1), 0, std::move(end)};
}

void describe(Diagnostic& diagnostic, const DetectorInput& input, const EndFault& fault, const std::string& section) {
    const TextRange header = range_of_line(input.text, fault.header + 1);
    if (fault.swallowed && fault.has_place) {
        diagnostic.message = "Section " + section + (fault.is_certain ? " has no" : " may lack an") +
                             " 'end' before this line, which is read as part of it.";
        diagnostic.range = range_of_line(input.text, *fault.swallowed + 1);
        diagnostic.related.push_back({"the section begins here", header, {}});
        return;
    }
    diagnostic.message = "Section " + section + " has no 'end'.";
    diagnostic.range = header;
    diagnostic.help.emplace_back("add a line 'end' after the last line of the section");
    if (fault.swallowed) {
        diagnostic.related.push_back(
            {"this line is read as part of the section", range_of_line(input.text, *fault.swallowed + 1), {}});
    }
}

Diagnostic diagnostic_of(const DetectorInput& input, const EndFinding& finding) {
    const EndFault& fault = finding.fault;
    const std::string_view section = marked_name(trim_view(input.lines.raw(fault.header)));
    Diagnostic diagnostic;
    diagnostic.severity = fault.is_certain || finding.is_never_ended ? Severity::error : Severity::warning;
    diagnostic.code = codes::inp::missing_end;
    diagnostic.subject = {std::string(subjects::section), {}, input.schema.rules.canonical_section(section)};
    describe(diagnostic, input, fault, shown_name(">" + std::string(section)));
    if (fault.has_place) {
        diagnostic.fixes.push_back({"add the missing 'end'",
                                    fault.is_certain ? Applicability::certain : Applicability::likely,
                                    {end_after(input.lines, fault)}});
    }
    return diagnostic;
}

}  // namespace

Detections find_missing_ends(const DetectorInput& input) {
    Detections found;
    for (EndFinding& finding : find_end_findings(input)) {
        if (finding.fault.kind == EndFault::Kind::missing) {
            found.push_back({diagnostic_of(input, finding), std::move(finding.covers), std::move(finding.explains)});
        }
    }
    return found;
}

}  // namespace velk::input::amesp
