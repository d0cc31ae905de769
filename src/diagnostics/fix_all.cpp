// Fixes made until none is left.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

#include "model/compose_edits.hpp"

namespace velk::input::amesp {
namespace {

// What is read depends on where sections end, so these go before all else.
bool is_of_structure(const Diagnostic& diagnostic) {
    return diagnostic.code == codes::inp::misspelt_end || diagnostic.code == codes::inp::missing_end ||
           diagnostic.code == codes::inp::one_line_section;
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
        add_fixes(diagnosis, is_of_structure);
        if (edits_.empty()) {
            add_fixes(diagnosis, [](const Diagnostic& /*any*/) { return true; });
        }
        if (edits_.empty()) {
            return false;
        }
        result_.edits = compose(result_.edits, edits_);
        result_.text = apply(result_.text, edits_);
        return true;
    }

    bool is_wanted(const Fix& fix) const { return fix.applicability <= up_to_; }

    template <class Condition>
    void add_fixes(const Diagnosis& diagnosis, Condition may_fix) {
        std::uint64_t done = 0;  // up to here the text is edited
        for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
            if (!may_fix(diagnostic)) {
                continue;
            }
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
