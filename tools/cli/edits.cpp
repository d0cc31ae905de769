// The edits of a command line.
#include "edits.hpp"

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <velk/core/fs.hpp>
#include <velk/core/text.hpp>
#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/parser.hpp>

#include "findings.hpp"
#include "rendering_changes.hpp"

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

// The argument before and after its first `separator`; both must not be empty unless `may_end` is set.
std::pair<std::string, std::string> split(EditKind kind, const std::string& argument, char separator, bool may_end) {
    const std::size_t place = argument.find(separator);
    if (place == std::string::npos || place == 0 || (!may_end && place + 1 == argument.size())) {
        throw std::runtime_error(std::string(name_of(kind).option) + " expects " + name_of(kind).argument + ", got '" +
                                 argument + "'");
    }
    return {argument.substr(0, place), argument.substr(place + 1)};
}

void apply(AIPEditor& editor, const Edit& edit, const Edits& edits) {
    const auto& [kind, argument] = edit;
    switch (kind) {
        case EditKind::set_directive: {
            const auto [name, value] = split(kind, argument, '=', true);
            return editor.set_directive(name, value);
        }
        case EditKind::unset_directive:
            editor.remove_directive(argument);
            return;
        case EditKind::set_method:
            return editor.set_method_tokens(velk::core::text::split_whitespace(argument));
        case EditKind::add_token:
            return editor.add_method_token(argument);
        case EditKind::remove_token:
            editor.remove_method_token(argument);
            return;
        case EditKind::set_entry: {
            const auto [section, rest] = split(kind, argument, '.', false);
            const auto [key, value] = split(kind, rest, '=', true);
            return editor.set_section_entry(section, key, value);
        }
        case EditKind::unset_entry: {
            const auto [section, key] = split(kind, argument, '.', false);
            editor.remove_section_entry(section, key);
            return;
        }
        case EditKind::remove_section:
            editor.remove_section(argument);
            return;
        case EditKind::set_geometry:
            return set_geometry(editor, argument, edits.charge, edits.multiplicity);
    }
}

}  // namespace

const EditName& name_of(EditKind kind) {
    return edit_names[static_cast<std::size_t>(kind)];
}

void apply(AIPEditor& editor, const Edits& edits) {
    for (const Edit& edit : edits.in_order) {
        apply(editor, edit, edits);
    }
}

void set_geometry(AIPEditor& editor, const std::string& xyz_path, std::optional<std::int32_t> charge,
                  std::optional<std::int32_t> multiplicity) {
    const Input input{xyz_path, xyz_path == "-" ? "<stdin>" : xyz_path};
    Molecule molecule = read_xyz(read_input(input), input.name);
    const Section* const old = editor.data().find_section("xyz");
    charge = charge ? charge : molecule.charge;
    multiplicity = multiplicity ? multiplicity : molecule.multiplicity;
    if (old != nullptr) {
        charge = charge ? charge : old->charge;
        multiplicity = multiplicity ? multiplicity : old->multiplicity;
    }
    if (!charge || !multiplicity) {
        throw std::runtime_error("the charge and the multiplicity of '" + input.name +
                                 "' are not known: give --charge and --multiplicity");
    }
    editor.set_xyz_geometry(*charge, *multiplicity, std::move(molecule.atoms));
}

bool cannot_be_forced(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.code == codes::inp::reads_differently && finding.location.line == 0;
    });
}

namespace {

std::vector<Finding> not_written(const OverlayResult& result) {
    std::vector<Finding> findings;
    for (const ValidationIssue& problem : result.problems) {
        findings.push_back({problem.severity,
                            problem.code,
                            problem.message,
                            problem.location.value_or(SourceLocation{0, 0, 0}),
                            {},
                            {}});
    }
    return findings;
}

// The text before is looked at only when the text after has errors at all.
std::vector<Finding> new_errors(const std::string& before, const std::string& after, const InputSchema& schema) {
    std::vector<Finding> errors = find_all(after, schema);
    std::erase_if(errors, [](const Finding& finding) { return finding.severity != IssueSeverity::Error; });
    if (errors.empty()) {
        return errors;
    }
    std::multiset<std::string> known;
    for (const Finding& finding : find_all(before, schema)) {
        known.insert(finding.code + finding.message);
    }
    std::erase_if(errors, [&](const Finding& finding) {
        return !known.extract(finding.code + finding.message).empty();  // each one excuses one
    });
    return errors;
}

}  // namespace

int finish_edit(const EditOutput& output, const Input& input, const std::string& before, const AIPEditor& editor) {
    OverlayResult laid_over = output.canonical ? OverlayResult() : editor.render_over(before);
    const std::string after = output.canonical ? editor.render() : std::move(laid_over.text);
    const std::vector<Finding> lost = output.canonical ? inexpressible(editor, before, after) : not_written(laid_over);
    const bool hopeless = output.canonical ? cannot_be_forced(lost) : !lost.empty();
    // What is lost has its place in the text before, errors have theirs in the text that would be written.
    const bool loses = report_findings(input, before, lost);
    const bool refused = report_findings(input, after, new_errors(before, after, editor.schema())) || loses;
    if (refused && (hopeless || !output.force)) {
        complain("'" + input.name + "' is left as it is" + (hopeless ? "" : " (--force writes it all the same)"));
        return exit_findings;
    }
    deliver(output, input, before, after);
    return exit_clean;
}

}  // namespace amesp_inp
