// Edits through every operation of the editor, drawn at random.
#pragma once

#include <string>
#include <velk/input/amesp/editor.hpp>

#include "in_place/random_document.hpp"

namespace velk::test {

struct EditLog {
    std::string text;           // what was done, for a failing case
    bool expressible = true;    // every edit can be written
    bool new_geometry = false;  // the geometry was replaced
};

// Makes one edit. With `expressible_only`, one that the text format can hold.
void random_edit(Random& random, input::amesp::AIPEditor& editor, bool expressible_only, EditLog& log);

}  // namespace velk::test
