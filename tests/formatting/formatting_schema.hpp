// The schema of the tests of canonical form, and findings as short texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::test {

inline const input::amesp::InputSchema& formatting_schema() {
    static const auto schema = input::amesp::InputSchema::from_yaml(R"(
directives: {maxcore: {aliases: [mem]}, title: {}}
method_tokens: {hf: {category: method, aliases: [hartree-fock]}, opt: {category: task}}
sections:
  scf: {parse_mode: key_value, aliases: [hf-scf], entries: {conv: {aliases: [tol]}, guess: {}}}
  xyz: {parse_mode: cartesian_coordinates}
  notes: {parse_mode: raw}
)");
    return schema;
}

// "LINE:COLUMN CODE" of each, the code without the "amesp-inp." of its family; "-" for no place.
inline std::string in_short(const std::vector<input::amesp::Diagnostic>& findings) {
    std::string text;
    for (const auto& finding : findings) {
        constexpr std::string_view family = "amesp-inp.";
        const std::string_view code = finding.code;
        text += text.empty() ? "" : ", ";
        text += finding.range
                    ? std::to_string(finding.range->start.line) + ":" + std::to_string(finding.range->start.column)
                    : "-";
        text += " " + std::string(code.starts_with(family) ? code.substr(family.size()) : code);
    }
    return text;
}

}  // namespace velk::test
