// The edits of a command line.
#include "edits.hpp"

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <velk/core/fs.hpp>
#include <velk/core/text.hpp>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>

#include "geometry_header.hpp"
#include "key_values.hpp"
#include "line_ends.hpp"
#include "numbers.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

constexpr std::array edit_names = {
    EditName{EditKind::set_directive, "--directive", "NAME=VALUE", "Set a directive"},
    EditName{EditKind::unset_directive, "--unset-directive", "NAME", "Remove a directive"},
    EditName{EditKind::set_method, "--method", "TOKENS", "Replace the tokens of the method line"},
    EditName{EditKind::add_token, "--add-token", "TOKEN", "Append a token to the method line"},
    EditName{EditKind::remove_token, "--remove-token", "TOKEN", "Remove a token from the method line"},
    EditName{EditKind::set_entry, "--entry", "SECTION.KEY=VALUE", "Set an entry of a section"},
    EditName{EditKind::unset_entry, "--unset-entry", "SECTION.KEY", "Remove an entry of a section"},
    EditName{EditKind::remove_section, "--remove-section", "NAME", "Remove a section"},
    EditName{EditKind::set_geometry, "--geometry", "MOL.xyz", "Replace the geometry by that of an XYZ file"},
};

// KEY=VALUE; the value may be empty.
struct Assignment {
    Key key;
    std::string value;
};

Key key_of(const Edit& edit, KeyKind kind, std::string_view text, const InputSchema& schema) {
    return read_key(name_of(edit.kind).option, kind, text, schema);
}

Assignment assignment_of(const Edit& edit, KeyKind kind, const InputSchema& schema) {
    const EditName& name = name_of(edit.kind);
    const std::size_t equals = edit.argument.find('=');
    if (equals == std::string::npos) {
        throw std::runtime_error(std::string(name.option) + " expects " + name.argument + ", got '" + edit.argument +
                                 "'");
    }
    return {key_of(edit, kind, std::string_view(edit.argument).substr(0, equals), schema),
            edit.argument.substr(equals + 1)};
}

void set_entry(AIPEditor& editor, const Edit& edit) {
    const auto [key, value] = assignment_of(edit, KeyKind::entry, editor.schema());
    if (key.kind == KeyKind::entry) {
        return editor.set_section_entry(key.name, key.entry, value);
    }
    const bool is_number = key.kind == KeyKind::charge || key.kind == KeyKind::multiplicity;
    if (!is_number || editor.schema().canonical_section(key.name) != "xyz") {
        throw std::runtime_error("--entry cannot set '" + edit.argument + "'");
    }
    const auto number = read_number<std::int32_t>(velk::core::text::trim_view(value));
    if (!number) {
        throw std::runtime_error("--entry expects an integer after '=', got '" + edit.argument + "'");
    }
    key.kind == KeyKind::charge ? set_header(editor, number, {}) : set_header(editor, {}, number);
}

void unset_entry(AIPEditor& editor, const Edit& edit) {
    const Key key = key_of(edit, KeyKind::entry, edit.argument, editor.schema());
    if (key.kind != KeyKind::entry) {
        throw std::runtime_error("--unset-entry cannot remove '" + edit.argument + "'");
    }
    editor.remove_section_entry(key.name, key.entry);
}

void add_token(AIPEditor& editor, const Edit& edit) {
    const Key key = key_of(edit, KeyKind::token, edit.argument, editor.schema());
    if (key.kind == KeyKind::token_category) {
        throw std::runtime_error("--add-token expects a token, but '" + edit.argument + "' is a category of tokens");
    }
    editor.add_method_token(key.name);
}

void remove_token(AIPEditor& editor, const Edit& edit) {
    const Key key = key_of(edit, KeyKind::token, edit.argument, editor.schema());
    if (key.kind == KeyKind::token) {
        editor.remove_method_token(key.name);
        return;
    }
    std::set<std::string> of_category;
    for (const MethodToken& token : editor.data().method_tokens) {
        if (is_of_category(token, key.name)) {
            of_category.insert(token.canonical);
        }
    }
    for (const std::string& token : of_category) {
        editor.remove_method_token(token);
    }
}

// A mark before the tokens says nothing new.
void set_method(AIPEditor& editor, std::string_view tokens) {
    tokens = velk::core::text::trim_view(tokens);
    tokens.remove_prefix(tokens.starts_with('!') ? 1 : 0);
    editor.set_method_tokens(velk::core::text::split_whitespace(tokens));
}

void apply(AIPEditor& editor, const Edit& edit, const Geometries& geometries) {
    switch (edit.kind) {
        case EditKind::set_directive: {
            const auto [key, value] = assignment_of(edit, KeyKind::directive, editor.schema());
            return editor.set_directive(key.name, value);
        }
        case EditKind::unset_directive:
            editor.remove_directive(key_of(edit, KeyKind::directive, edit.argument, editor.schema()).name);
            return;
        case EditKind::set_method:
            return set_method(editor, edit.argument);
        case EditKind::add_token:
            return add_token(editor, edit);
        case EditKind::remove_token:
            return remove_token(editor, edit);
        case EditKind::set_entry:
            return set_entry(editor, edit);
        case EditKind::unset_entry:
            return unset_entry(editor, edit);
        case EditKind::remove_section:
            editor.remove_section(key_of(edit, KeyKind::section, edit.argument, editor.schema()).name);
            return;
        case EditKind::set_geometry:
            return set_geometry(editor, geometries.at(edit.argument));
    }
}

}  // namespace

const EditName& name_of(EditKind kind) {
    return edit_names[static_cast<std::size_t>(kind)];
}

Geometries read_geometries(const Edits& edits, bool quiet) {
    Geometries geometries;
    for (const Edit& edit : edits.in_order) {
        if (edit.kind == EditKind::set_geometry && !geometries.contains(edit.argument)) {
            geometries.emplace(edit.argument, read_geometry(edit.argument, edits.geometry, quiet));
        }
    }
    return geometries;
}

void apply(AIPEditor& editor, const Edits& edits, const Geometries& geometries) {
    for (const Edit& edit : edits.in_order) {
        apply(editor, edit, geometries);
    }
    const bool has_new_geometry = std::any_of(edits.in_order.begin(), edits.in_order.end(),
                                              [](const Edit& edit) { return edit.kind == EditKind::set_geometry; });
    if (!has_new_geometry && (edits.geometry.charge || edits.geometry.multiplicity)) {
        set_header(editor, edits.geometry.charge, edits.geometry.multiplicity);
    }
}

bool cannot_be_forced(const std::vector<Diagnostic>& findings) {
    return std::any_of(findings.begin(), findings.end(), [](const Diagnostic& finding) {
        return finding.code == codes::inp::reads_differently && !finding.range;
    });
}

namespace {

std::vector<Diagnostic> not_written(const OverlayResult& result, std::string_view text) {
    const TextPositions positions(text);
    std::vector<Diagnostic> findings;
    for (const ValidationIssue& problem : result.problems) {
        findings.push_back(to_diagnostic(problem, positions));
        if (problem.code == codes::kept_unit) {
            findings.back().severity = Severity::error;  // coordinates that the program puts in are in angstrom
        }
    }
    return findings;
}

bool has_code(const std::vector<Diagnostic>& findings, std::string_view code) {
    return std::any_of(findings.begin(), findings.end(),
                       [code](const Diagnostic& finding) { return finding.code == code; });
}

bool lacks_a_record(const OverlayResult& result) {
    return std::any_of(result.problems.begin(), result.problems.end(),
                       [](const ValidationIssue& problem) { return problem.severity == IssueSeverity::Error; });
}

// What an edit would write.
struct Rewritten {
    std::string text;
    std::vector<Diagnostic> lost;  // of the text before
    bool hopeless = false;         // also when forced
};

Rewritten edited_in_place(const AIPEditor& editor, std::string_view before, bool drop_words) {
    OverlayResult result = editor.render_over(before, OverlayOptions{.drop_header_words = drop_words});
    std::vector<Diagnostic> lost = not_written(result, before);
    return {std::move(result.text), std::move(lost), lacks_a_record(result)};
}

// With words that go unasked told as when the text is edited in place.
Rewritten in_canonical_form(const AIPEditor& editor, std::string_view before) {
    std::string text = editor.render();
    std::vector<Diagnostic> lost = canonical_losses(editor, before, text);
    const bool hopeless = cannot_be_forced(lost);
    for (Diagnostic& finding : edited_in_place(editor, before, true).lost) {
        if (finding.code == codes::dropped_words) {
            lost.push_back(std::move(finding));
        }
    }
    return {with_line_ends_of(before, std::move(text)), std::move(lost), hopeless};
}

// The text before is looked at only when there is something to say of the text after.
std::vector<Diagnostic> new_findings(const std::string& before, const std::string& after, const InputSchema& schema) {
    std::vector<Diagnostic> findings = diagnose(after, schema).diagnostics;
    if (findings.empty()) {
        return findings;
    }
    std::multiset<std::string> known;
    const auto key_of = [](const Diagnostic& finding) { return std::string(finding.code) + finding.message; };
    for (const Diagnostic& finding : diagnose(before, schema).diagnostics) {
        known.insert(key_of(finding));
    }
    std::erase_if(findings, [&](const Diagnostic& finding) {
        return !known.extract(key_of(finding)).empty();  // each one excuses one
    });
    return findings;
}

}  // namespace

EditOutcome finish_edit(const EditOutput& output, EditReport& report, const Input& input, const std::string& before,
                        const AIPEditor& editor) {
    const auto [after, lost, hopeless] =
        output.canonical ? in_canonical_form(editor, before) : edited_in_place(editor, before, output.drop_words);
    // What is lost has its place in the text before, findings have theirs in the text that would be written.
    const bool has_error =
        report_findings(report, input, {{before, lost}, {after, new_findings(before, after, editor.schema())}});
    if (has_error && (hopeless || !output.force)) {
        complain("'" + input.name + "' is left as it is" + (hopeless ? "" : " (--force writes it all the same)") +
                 (has_code(lost, codes::kept_unit) ? "; --drop-words leaves the words of the old header out" : ""));
        return {exit_findings};
    }
    return deliver(output, input, before, after);
}

}  // namespace amesp_inp
