// Rendering against std::to_chars into one buffer.
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "floor.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "texts.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

auto against_floor(const std::string& text) {
    AIPEditor editor(AIPParser::parse_string(text, schema(), {}).data, schema());
    require(editor.render() == floor_render(editor.data()).view(), "the floor renders another text");
    return Contest([editor] { return editor.render(); }, [editor] { return floor_render(editor.data()); });
}

void add_rows() {
    constexpr Target target = at_most(0.45);
    add_pair("render 1e3 atoms / std::to_chars", target, [] { return against_floor(coordinates_text(1000)); });
    add_pair(
        "render 1e5 atoms / std::to_chars", target, [] { return against_floor(coordinates_text(100000)); }, 3.0);
    add_pair(
        "render 1e6 atoms / std::to_chars", target, [] { return against_floor(coordinates_text(1000000)); }, 8.0);
    add_pair("render 1e3 entries / floor", no_target(), [] { return against_floor(entries_text(1000)); });
}

const RowGroup group(Place::render, add_rows);

}  // namespace
}  // namespace velk::bench
