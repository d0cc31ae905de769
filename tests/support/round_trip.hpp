// The law of rendering, with its condition, for every test that relies on it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <velk/core/text.hpp>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

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

// Where parsing a rendering gives back the document, rendering again gives the same bytes. It does not where a value
// holds '=', a key holds a blank or is "end", coordinates are rounded, or canonical names are not their own canonical
// form. Says whether the condition held.
inline bool expect_stable_rendering(const input::amesp::AIPData& data, const input::amesp::InputSchema& schema) {
    const std::string once = input::amesp::AIPEditor(data, schema).render();
    const input::amesp::AIPData again = input::amesp::AIPParser::parse_string(once, schema, {true, false}).data;
    if (without_source(again) != without_source(data)) {
        return false;
    }
    EXPECT_EQ(input::amesp::AIPEditor(again, schema).render(), once);
    return true;
}

}  // namespace velk::test
