// What must hold of every edited document that is written into a text.
#pragma once

#include <string>
#include <string_view>
#include <velk/input/amesp/editor.hpp>

namespace velk::test {

struct InPlaceOutcome {
    const std::string& text;
    bool preserve_unknown;
    const input::amesp::AIPData& before;  // as read from the text
    const input::amesp::AIPEditor& editor;
    bool new_geometry;  // one was set: its place among the sections is left open
    const input::amesp::OverlayResult& result;
};

// What is broken, in words; empty when nothing is. Without a problem reported, the result reads back as the document;
// always, untouched lines stay, and only new records make new lines.
std::string broken_law(const InPlaceOutcome& outcome);

}  // namespace velk::test
