// Fixes made until none is left.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "diagnostics/missing_ends.hpp"
#include "diagnostics/places.hpp"
#include "diagnostics/subjects.hpp"
#include "model/compose_edits.hpp"
#include "validation/issues.hpp"

namespace velk::input::amesp {
namespace {

// What a section is told whose 'end' is missing, with its fix alone.
Diagnostic diagnostic_of(MissingEnd missing, const TextPositions& text, const Diagnosis& diagnosis) {
    const auto at_header = [&](const Section& section) { return section.location->line == missing.header; };
    const auto& sections = diagnosis.document.sections;
    const auto section = std::find_if(sections.begin(), sections.end(), at_header);
    Diagnostic diagnostic;
    diagnostic.severity = Severity::error;
    diagnostic.code = codes::unterminated_section;
    diagnostic.range = range_of_line(text, missing.header);
    if (section != sections.end()) {
        diagnostic.subject = subject_of({.section = &*section});
    }
    diagnostic.message = issues::unterminated_section(diagnostic.subject.name, std::nullopt).message;
    diagnostic.fixes = {std::move(missing.fix)};
    return diagnostic;
}

class Fixer {
public:
    Fixer(std::string_view text, const SchemaSource& schema, Applicability up_to) : schema_(schema), up_to_(up_to) {
        result_.text = text;
    }

    FixResult run(const DiagnoseOptions& options) {
        constexpr int most_rounds = 10;
        for (int round = 0; round < most_rounds && make_fixes(); ++round) {
        }
        result_.remaining = diagnose(result_.text, schema_, options);
        return std::move(result_);
    }

private:
    // Whether there were any.
    bool make_fixes() {
        const Diagnosis diagnosis = diagnose(result_.text, schema_);
        edits_.clear();
        add_missing_ends(diagnosis);
        if (edits_.empty()) {
            add_other_fixes(diagnosis);
        }
        if (edits_.empty()) {
            return false;
        }
        result_.edits = compose(result_.edits, edits_);
        result_.text = apply(result_.text, edits_);
        return true;
    }

    bool is_wanted(const Fix& fix) const { return fix.applicability <= up_to_; }

    void add_missing_ends(const Diagnosis& diagnosis) {
        const TextPositions text(result_.text);
        for (MissingEnd& missing : find_missing_ends(result_.text, schema_.rules)) {
            if (is_wanted(missing.fix)) {
                edits_.insert(edits_.end(), missing.fix.edits.begin(), missing.fix.edits.end());
                result_.applied.push_back(diagnostic_of(std::move(missing), text, diagnosis));
            }
        }
    }

    void add_other_fixes(const Diagnosis& diagnosis) {
        std::uint64_t done = 0;  // up to here the text is edited
        for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
            const auto fix = std::find_if(diagnostic.fixes.begin(), diagnostic.fixes.end(),
                                          [this](const Fix& each) { return is_wanted(each); });
            if (fix == diagnostic.fixes.end() || fix->edits.front().offset < done) {
                continue;
            }
            edits_.insert(edits_.end(), fix->edits.begin(), fix->edits.end());
            done = fix->edits.back().offset + fix->edits.back().length;
            result_.applied.push_back(diagnostic);
            result_.applied.back().fixes = {*fix};
        }
    }

    const SchemaSource& schema_;
    const Applicability up_to_;
    std::vector<TextEdit> edits_;  // of this round
    FixResult result_;
};

}  // namespace

FixResult fix_all(std::string_view text, const SchemaSource& schema, Applicability up_to,
                  const DiagnoseOptions& options) {
    return Fixer(text, schema, up_to).run(options);
}

}  // namespace velk::input::amesp
