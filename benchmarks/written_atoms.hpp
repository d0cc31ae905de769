// The library's rendering of the coordinates against another way of writing their lines.
#pragma once

#include <velk/input/amesp/editor.hpp>

#include "alternatives.hpp"
#include "pair.hpp"

namespace velk::bench {

template <class Write>
auto against_writer(Write write) {
    const input::amesp::AIPEditor editor(parse_coordinates().data, schema());
    require(editor.render().ends_with(write() + "end\n"), "the alternative writes other lines");
    return Contest([editor] { return editor.render(); }, write);
}

}  // namespace velk::bench
