// What canonical rendering loses or changes: by rule where the rule is known, and in any case by reading the rendering
// back.
#include <algorithm>
#include <tuple>
#include <utility>

#include <velk/input/amesp/formatting.hpp>

#include "diagnostics/places.hpp"
#include "formatting/changes.hpp"
#include "parser/reader.hpp"

namespace velk::input::amesp {
namespace {

using formatting::Change;
using formatting::Changes;

// By place; what has none comes first.
std::vector<Diagnostic> diagnostics_of(std::vector<Change> changes, const TextPositions& text) {
    const auto place_of = [](const Change& change) {
        return change.location ? std::pair(change.location->line, change.location->column)
                               : std::pair(std::uint64_t{0}, std::uint64_t{0});
    };
    std::stable_sort(changes.begin(), changes.end(),
                     [&](const Change& a, const Change& b) { return place_of(a) < place_of(b); });
    std::vector<Diagnostic> diagnostics;
    for (const Change& change : changes) {
        Diagnostic diagnostic;
        diagnostic.severity = change.severity;
        diagnostic.code = change.code;
        diagnostic.message = change.message;
        if (change.location) {
            diagnostic.range = range_of(text, *change.location);
        }
        diagnostics.push_back(std::move(diagnostic));
    }
    return diagnostics;
}

}  // namespace

std::vector<Diagnostic> canonical_losses(const AIPEditor& editor, std::string_view text, std::string_view rendered) {
    const TextPositions positions(text);
    Changes changes;
    formatting::add_dropped_words(changes, editor.data(), positions);
    formatting::add_differences(changes, editor.data(), read_document(rendered, editor.schema(), true),
                                editor.schema());
    std::vector<Change> found = changes.take();
    std::erase_if(found, [](const Change& change) { return change.severity != Severity::error; });
    return diagnostics_of(std::move(found), positions);
}

std::vector<Diagnostic> canonical_changes(const AIPEditor& editor, std::string_view text, std::string_view rendered) {
    const TextPositions positions(text);
    const AIPData read_back = read_document(rendered, editor.schema(), true);
    Changes changes;
    formatting::add_dropped_words(changes, editor.data(), positions);
    formatting::add_differences(changes, editor.data(), read_back, editor.schema());
    formatting::add_repairs(changes, editor.data());
    formatting::add_moved_lines(changes, editor.data(), positions, read_back, TextPositions(rendered));
    return diagnostics_of(changes.take(), positions);
}

}  // namespace velk::input::amesp
