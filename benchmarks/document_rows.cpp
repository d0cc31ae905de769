// A one-kilobyte document, validation alone, the in-place write and the schema.
#include <yaml-cpp/yaml.h>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "floor.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "texts.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

const FloorNames& names() {
    static const FloorNames all = floor_names(schema().tables());
    return all;
}

AIPData parsed(std::string_view text) {
    return AIPParser::parse_string(text, schema(), {}).data;
}

void edit(AIPEditor& editor) {
    editor.set_directive("resource_0", "8000");
    editor.set_section_entry("scf", "energy_max", "300");
}

AIPEditor edited(std::string_view text) {
    AIPEditor editor(parsed(text), schema());
    edit(editor);
    return editor;
}

auto parse_small() {
    require(parsed(small_text()) == floor_parse(small_text(), names()), "the floor reads another document");
    return Contest([] { return AIPParser::parse_string(small_text(), schema(), {}); },
                   [] { return floor_parse(small_text(), names()); });
}

// From text to edited, valid text; empty when it is not valid. The document lives on, as the floor's does.
struct EditedText {
    AIPEditor editor;
    std::string text;
};

EditedText edit_text() {
    EditedText result{edited(small_text()), {}};
    if (result.editor.validate().empty()) {
        result.text = result.editor.render();
    }
    return result;
}

auto edit_small() {
    require(parsed(small_text()) == floor_parse(small_text(), names()), "the floor reads another document");
    require(!edit_text().text.empty(), "the document is not valid");
    return Contest([] { return edit_text(); }, [] { return floor_parse(small_text(), names()); });
}

auto render_small() {
    const AIPEditor editor(parsed(small_text()), schema());
    require(editor.render() == floor_render(editor.data()).view(), "the floor renders another text");
    return Contest([editor] { return editor.render(); }, [editor] { return floor_render(editor.data()); });
}

auto edit_alone() {
    AIPEditor editor = edited(small_text());
    return Contest(
        [editor]() mutable {
            edit(editor);
            return editor.data().directives.size();
        },
        [] { return parsed(small_text()); });
}

auto lay_over(const std::string& text, bool with_entry) {
    AIPEditor editor(parsed(text), schema());
    editor.set_directive("resource_0", "8000");
    if (with_entry) {
        editor.set_section_entry("scf", "energy_max", "300");
    }
    const OverlayResult edited_in_place = editor.render_over(text);
    require(edited_in_place.problems.empty() && parsed(edited_in_place.text).directives[0].value == "8000",
            "the edit was lost");
    return Contest([editor, text] { return editor.render_over(text); }, [text] { return parsed(text); });
}

auto validate(const std::string& text, std::size_t issues) {
    const AIPData data = parsed(text);
    require(schema().validate(data).size() == issues && floor_validate(data, names()) == 0, "the values are not valid");
    return Contest([data] { return schema().validate(data); }, [data] { return floor_validate(data, names()); });
}

// Both let go of their nodes, of which a schema keeps nothing.
auto load_schema() {
    return Contest([] { return InputSchema::from_yaml(schema_text()); },
                   [] { return YAML::Load(schema_text()).IsMap(); });
}

void add_rows() {
    add_pair("parse 1 kB / floor", at_most(1.25), parse_small);
    add_pair("parse, edit, validate and render 1 kB / floor's parse", at_most(2.2), edit_small);
    add_pair("render 1 kB / floor", no_target(), render_small);
    add_pair("two edits of 1 kB / its parse", no_target(), edit_alone);
    add_pair("in-place write of 1 kB, two edits / its parse", at_most(2.0),
             [] { return lay_over(small_text(), true); });
    add_pair(
        "in-place write of 1e5 atoms, one edit / its parse", at_most(2.0),
        [] { return lay_over(coordinates_text(100000), false); }, 3.0);
    add_pair(
        "in-place write of 1e5 entries, two edits / its parse", at_most(2.0),
        [] { return lay_over(entries_text(100000), true); }, 3.0);
    add_pair("validate 1e3 entries / bare look-ups and number reading", at_most(1.5),
             [] { return validate(entries_text(1000), 1); });
    add_pair("validate 1 kB / bare look-ups and number reading", no_target(), [] { return validate(small_text(), 0); });
    add_pair("from_yaml of 500 names / YAML::Load", at_most(1.12), load_schema, 2.0);
}

const RowGroup group(Place::document, add_rows);

}  // namespace
}  // namespace velk::bench
