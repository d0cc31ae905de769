// What of a document is the same after it was rendered and read again.
#pragma once

#include <string>
#include <velk/core/text.hpp>
#include <velk/input/amesp/document.hpp>

namespace velk::test {

// What rendering keeps of a document: everything but places, the lines as they were written, and warnings.
inline input::amesp::AIPData without_source(input::amesp::AIPData data) {
    data.warnings.clear();
    for (auto& directive : data.directives) {
        directive.location.reset();
    }
    for (auto& token : data.method_tokens) {
        token.location.reset();
        token.text.clear();
    }
    for (auto& section : data.sections) {
        section.location.reset();
        for (std::string& line : section.raw_lines) {
            line = core::text::trim(line);  // body lines are indented anew
        }
        for (auto& entry : section.entries) {
            entry.location.reset();
            entry.raw_line.clear();
        }
        for (auto& atom : section.atoms) {
            atom.location.reset();
            atom.raw_line.clear();
        }
    }
    return data;
}

}  // namespace velk::test
