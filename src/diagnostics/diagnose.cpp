// All findings of parser and rules, each with its place and with what helps to fix it.
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "diagnostics/detectors.hpp"
#include "diagnostics/fold_causes.hpp"
#include "diagnostics/name_hints.hpp"
#include "diagnostics/places.hpp"
#include "diagnostics/renames.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/value_hints.hpp"
#include "diagnostics/value_places.hpp"
#include "parser/line.hpp"
#include "parser/reader.hpp"
#include "validation/document_check.hpp"

namespace velk::input::amesp {
namespace {

// Codes come from the one table, so that a diagnostic needs no text of its own for it.
std::string_view listed(std::string_view code) {
    const CodeInfo* const info = find_code(code);
    return info == nullptr ? std::string_view() : info->code;
}

Diagnostic without_place(Severity severity, std::string_view code, std::string message) {
    Diagnostic diagnostic;
    diagnostic.severity = severity;
    diagnostic.code = listed(code);
    diagnostic.message = std::move(message);
    return diagnostic;
}

// What the user may have meant by a name, found once for each name however often it stands in the text.
class Hints {
public:
    explicit Hints(const InputSchema& schema) : hinter_(schema) {}

    const NameHints& of(const Subject& subject) {
        const auto [place, is_new] = known_.try_emplace({subject.kind, subject.section, subject.name});
        if (is_new) {
            place->second = made_for(subject);
        }
        return place->second;
    }

private:
    NameHints made_for(const Subject& subject) {
        if (subject.kind == subjects::directive) {
            return hinter_.for_directive(subject.name);
        }
        if (subject.kind == subjects::token) {
            return hinter_.for_token(subject.name);
        }
        if (subject.kind == subjects::section) {
            return hinter_.for_section(subject.name);
        }
        return hinter_.for_entry(subject.section, subject.name);
    }

    NameHinter hinter_;
    std::map<std::array<std::string, 3>, NameHints> known_;  // ordered: an input cannot aim at its cost
};

// Of those at one place the order stays.
std::vector<Diagnostic> by_place(std::vector<Diagnostic> found) {
    std::vector<std::pair<std::uint64_t, std::size_t>> order;  // diagnostics are large, and sorting moves things often
    order.reserve(found.size());
    for (const Diagnostic& diagnostic : found) {
        order.emplace_back(diagnostic.range->offset, order.size());
    }
    std::sort(order.begin(), order.end());
    std::vector<Diagnostic> sorted;
    sorted.reserve(found.size());
    for (const auto& [offset, index] : order) {
        sorted.push_back(std::move(found[index]));
    }
    return sorted;
}

class Diagnoser {
public:
    Diagnoser(const TextPositions& text, const InputSchema& schema, Diagnosis& diagnosis)
        : text_(text), hints_(schema), renames_(diagnosis.document, schema, text), diagnosis_(diagnosis) {}

    void run(const SchemaSource& schema) {
        const std::vector<RuleFinding> findings = DocumentCheck::run(schema.rules, diagnosis_.document);
        add_warnings(findings);
        for (const RuleFinding& finding : findings) {
            add(finding);
        }
        const LineTable lines(text_.text());
        found_ = fold_causes(detect({text_, lines, diagnosis_.document, schema}), std::move(found_));
        diagnosis_.diagnostics = by_place(std::move(found_));
    }

private:
    // Validation repeats a missing end as an error, at the same header.
    void add_warnings(const std::vector<RuleFinding>& findings) {
        const bool is_repeated = std::any_of(findings.begin(), findings.end(), [](const RuleFinding& finding) {
            return finding.issue.code == codes::unterminated_section;
        });
        for (const ParseWarning& warning : diagnosis_.document.warnings) {
            if (is_repeated && warning.code == codes::unterminated_section) {
                continue;
            }
            Diagnostic diagnostic = without_place(Severity::warning, warning.code, warning.message);
            diagnostic.range = range_of(text_, *warning.location);
            diagnostic.subject.kind = subjects::line;
            found_.push_back(std::move(diagnostic));
        }
    }

    void add(const RuleFinding& finding) {
        Diagnostic diagnostic =
            without_place(to_severity(finding.issue.severity), finding.issue.code, finding.issue.message);
        diagnostic.subject = subject_of(finding.records);
        diagnostic.range = place_of(finding);
        if (finding.records.first != nullptr) {
            const bool is_geometry = diagnostic.code == codes::multiple_geometry_sections;
            diagnostic.related.push_back(
                {is_geometry ? "the first coordinate section is here" : "the first one is here",
                 range_of(text_, *finding.records.first->location),
                 {}});
        }
        add_help(diagnostic, finding.records);
        found_.push_back(std::move(diagnostic));
    }

    // The line, where there is no value to mark.
    TextRange range_of_value(const RuleFinding& finding) const {
        const std::uint64_t number = finding.issue.location->line;
        const std::string_view raw = text_.line(number);
        const std::string_view line = core::text::trim_view(raw);
        const NameAndValue words = finding.records.entry != nullptr ? entry_words(line) : directive_words(line);
        if (words.value.empty()) {
            return range_of(text_, *finding.issue.location);
        }
        const auto column = static_cast<std::uint64_t>(words.value.data() - raw.data()) + 1;
        return range_of(text_, {number, column, words.value.size()});
    }

    TextRange place_of(const RuleFinding& finding) const {
        if (finding.issue.location) {
            return finding.records.value != nullptr ? range_of_value(finding)
                                                    : range_of(text_, *finding.issue.location);
        }
        if (finding.records.section != nullptr) {
            return range_of(text_, *finding.records.section->location);
        }
        return range_of_line(text_,
                             finding.issue.code == codes::missing_method_line ? first_content() : last_line(text_));
    }

    std::uint64_t first_content() const {
        for (std::uint64_t number = 1; number <= last_line(text_); ++number) {
            const LineKind kind = classify(core::text::trim_view(text_.line(number)));
            if (kind != LineKind::blank && kind != LineKind::comment) {
                return number;
            }
        }
        return 1;
    }

    void add_help(Diagnostic& diagnostic, const IssueRecords& records) {
        if (records.value != nullptr && diagnostic.code == codes::invalid_value) {
            if (std::string help = allowed_values(*records.value); !help.empty()) {
                diagnostic.help.push_back(std::move(help));
            }
        } else if (is_unknown_name(diagnostic.code)) {
            const NameHints& hints = hints_.of(diagnostic.subject);
            diagnostic.help = hints.helps;
            if (std::optional<Fix> fix = renames_.fix(records, hints.suggestion)) {
                diagnostic.fixes.push_back(std::move(*fix));
            }
        }
    }

    static bool is_unknown_name(std::string_view code) {
        return code == codes::unknown_directive || code == codes::unknown_method_token ||
               code == codes::unknown_section || code == codes::unknown_entry;
    }

    const TextPositions& text_;
    Hints hints_;
    Renames renames_;
    Diagnosis& diagnosis_;
    std::vector<Diagnostic> found_;
};

// Keeps so many of each code.
void apply_limit(Diagnosis& diagnosis, std::uint64_t limit) {
    if (limit == 0) {
        return;
    }
    std::map<std::string_view, std::uint64_t> counts;
    diagnosis.omitted += std::erase_if(diagnosis.diagnostics,
                                       [&](const Diagnostic& diagnostic) { return ++counts[diagnostic.code] > limit; });
}

}  // namespace

Diagnosis diagnose(std::string_view text, const SchemaSource& schema, const DiagnoseOptions& options) {
    Diagnosis diagnosis;
    diagnosis.document = read_document(text, schema.rules, true);
    const TextPositions positions(text);
    Diagnoser(positions, schema.rules, diagnosis).run(schema);
    apply_limit(diagnosis, options.limit_per_code);
    return diagnosis;
}

Diagnosis diagnose(AIPData document, const SchemaSource& schema, const DiagnoseOptions& options) {
    Diagnosis diagnosis;
    diagnosis.document = std::move(document);
    for (const RuleFinding& finding : DocumentCheck::run(schema.rules, diagnosis.document)) {
        Diagnostic diagnostic =
            without_place(to_severity(finding.issue.severity), finding.issue.code, finding.issue.message);
        diagnostic.subject = subject_of(finding.records);
        diagnosis.diagnostics.push_back(std::move(diagnostic));
    }
    apply_limit(diagnosis, options.limit_per_code);
    return diagnosis;
}

Diagnostic to_diagnostic(const ValidationIssue& issue, const TextPositions& text) {
    Diagnostic diagnostic = without_place(to_severity(issue.severity), issue.code, issue.message);
    if (issue.location) {
        diagnostic.range = range_of(text, *issue.location);
    }
    return diagnostic;
}

}  // namespace velk::input::amesp
