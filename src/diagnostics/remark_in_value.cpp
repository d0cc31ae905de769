// Remarks after values and method-line tokens.
#include "diagnostics/remark_in_value.hpp"

#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/line_ends.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/value_places.hpp"
#include "diagnostics/value_remarks.hpp"
#include "parser/line.hpp"
#include "schema/queries.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// The remark as a comment above the line.
Fix moved_up(const LineTable& lines, std::size_t line, std::string_view remark, std::string_view with_blanks) {
    std::string comment(indentation(lines.raw(line)));
    comment += remark;
    comment += line_end_like(lines, line);
    return {"make the remark a comment above",
            Applicability::certain,
            {{lines.begin_of(line), 0, std::move(comment)}, edit_of(lines, with_blanks, {})}};
}

class RemarkFinder {
public:
    explicit RemarkFinder(const DetectorInput& input) : input_(input), tables_(input.schema.rules.tables()) {}

    Detections run() {
        for (const Directive& directive : input_.document.directives) {
            if (const ValueSpec* const spec = queries::find_directive(tables_, directive.name)) {
                const std::size_t line = directive.location->line - 1;
                look_at(*spec, line, directive_words(trim_view(input_.lines.raw(line))).value,
                        subject_of({.directive = &directive}));
            }
        }
        look_at_method_tokens();
        for (const Section& section : input_.document.sections) {
            look_at_entries(section);
        }
        return std::move(found_);
    }

private:
    void look_at_entries(const Section& section) {
        const SectionSpec* const spec = queries::find_section(tables_, section.name);
        for (const SectionEntry& entry : section.entries) {
            const ValueSpec* const value = spec == nullptr ? nullptr : queries::find_entry(*spec, entry.key);
            if (value != nullptr) {
                const std::size_t line = entry.location->line - 1;
                look_at(*value, line, entry_words(trim_view(input_.lines.raw(line))).value,
                        subject_of({.section = &section, .entry = &entry}));
            }
        }
    }

    void look_at(const ValueSpec& spec, std::size_t line, std::string_view value, Subject subject) {
        const std::string_view before = value_before_remark(spec, value);
        const std::string_view remark =
            before.empty() ? remark_after_value(value) : trim_view(value.substr(before.size()));
        if (remark.empty()) {
            return;
        }
        Detected& found = found_.emplace_back(finding_in(
            input_, line, remark, before.empty() ? Severity::warning : Severity::error, codes::inp::remark_in_value,
            "The remark is read as part of the value: " + shown_name(value) + "."));
        found.diagnostic.subject = std::move(subject);
        found.diagnostic.help.emplace_back("write the remark on a line of its own");
        if (!before.empty()) {
            found.diagnostic.fixes.push_back(moved_up(input_.lines, line, remark, value.substr(before.size())));
        }
    }

    // Every word of a remark is read as a token; the first of each line is enough.
    void look_at_method_tokens() {
        std::uint64_t done = 0;
        for (const MethodToken& token : input_.document.method_tokens) {
            if (token.location->line == done || token.known || classify(token.text) != LineKind::comment) {
                continue;
            }
            done = token.location->line;
            const std::string_view raw = input_.lines.raw(done - 1);
            const std::string_view remark = trim_view(raw.substr(static_cast<std::size_t>(token.location->column - 1)));
            Detected& found =
                found_.emplace_back(finding_in(input_, done - 1, remark, Severity::warning, codes::inp::remark_in_value,
                                               "The words of the remark are read as method-line tokens."));
            found.diagnostic.help.emplace_back("write the remark on a line of its own");
            found.covers = {{found.diagnostic.range->offset, found.diagnostic.range->length}};
        }
    }

    const DetectorInput& input_;
    const InputSchema::Impl& tables_;
    Detections found_;
};

}  // namespace

Detections find_remarks_in_values(const DetectorInput& input) {
    return RemarkFinder(input).run();
}

}  // namespace velk::input::amesp
