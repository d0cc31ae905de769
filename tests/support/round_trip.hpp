// The law of rendering, with its condition, for every test that relies on it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "support/without_source.hpp"

namespace velk::test {

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
