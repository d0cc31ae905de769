// Lines such as 'edn' and 'end xyz', which end no section.
#include "diagnostics/misspelt_end.hpp"

#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/end_words.hpp"
#include "diagnostics/line_ends.hpp"
#include "diagnostics/places.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/swallowed_lines.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// A remark stays as a comment above, unless it says no more than the section's name.
std::string fixed_text(const DetectorInput& input, const EndFault& fault, std::string_view section) {
    const std::string_view raw = input.lines.raw(fault.last);
    const std::string_view rest = split_end_line(trim_view(raw)).rest;
    const std::size_t mark = rest.starts_with("//") ? 2 : 1;
    if (classify(rest) != LineKind::comment || rest.size() <= mark ||
        names_section(rest.substr(mark), section, input.schema.rules)) {
        return "end";
    }
    std::string text(rest);
    text += line_end_like(input.lines, fault.last);
    text += indentation(raw);
    return text + "end";
}

Diagnostic diagnostic_of(const DetectorInput& input, const EndFault& fault) {
    const std::string_view section = marked_name(trim_view(input.lines.raw(fault.header)));
    const std::string_view text = trim_view(input.lines.raw(fault.last));
    Diagnostic diagnostic;
    diagnostic.severity = Severity::error;
    diagnostic.code = codes::inp::misspelt_end;
    diagnostic.message = shown_name(text) + " does not end section " + shown_name(">" + std::string(section)) +
                         ": only 'end' alone on a line does.";
    diagnostic.range = range_of_line(input.text, fault.last + 1);
    diagnostic.subject = {std::string(subjects::section), {}, input.schema.rules.canonical_section(section)};
    diagnostic.related.push_back({"the section begins here", range_of_line(input.text, fault.header + 1), {}});
    diagnostic.fixes.push_back({"write 'end'",
                                Applicability::certain,
                                {{diagnostic.range->offset, text.size(), fixed_text(input, fault, section)}}});
    return diagnostic;
}

}  // namespace

Detections find_misspelt_ends(const DetectorInput& input) {
    Detections found;
    for (EndFinding& finding : find_end_findings(input)) {
        if (finding.fault.kind == EndFault::Kind::misspelt) {
            found.push_back(
                {diagnostic_of(input, finding.fault), std::move(finding.covers), std::move(finding.explains)});
        }
    }
    return found;
}

}  // namespace velk::input::amesp
