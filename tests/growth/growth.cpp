// Does one piece of work at two sizes, the second eight times the first, and has callgrind write down what each took.
//
// Runs under valgrind --tool=callgrind --collect-atstart=no: every dump is one measurement, "OPERATION: CASE: SIZE".
#include <malloc.h>
#include <valgrind/callgrind.h>

#include <cstdlib>
#include <string>

#include "growth/cases.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

constexpr std::size_t factor = 8;

const InputSchema& schema(std::size_t required) {
    static const std::string head = R"(
directives:
  maxcyc: {value_type: integer, min: 1, aliases: [maxit]}
  solver: {value_type: enum, allowed: [diis, ediis]}
method_tokens: {hf: {category: method}, b3lyp: {category: method, aliases: [b3-lyp]}, sto-3g: {category: basis}}
method_prefixes: {u: {category: uks}, ro: {}}
sections:
  xyz: {parse_mode: cartesian_coordinates, allow_multiple: false}
  scf: {parse_mode: key_value, entries: {maxcyc: {value_type: integer, min: 1}, conv: {value_type: real}}}
  notes: {parse_mode: raw}
  few: {parse_mode: key_value, entries: {e0: {required: true}, e1: {}}}
  many: {parse_mode: key_value, entries: {)";
    static InputSchema made;
    made = InputSchema::from_yaml(head + repeated(required, "e?: {required: true}, ") + "}}");
    return made;
}

template <class Work>
void measure(const std::string& name, std::size_t size, Work work) {
    const std::string label = name + ": " + std::to_string(size);
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    [[maybe_unused]] const auto result = work();  // what it holds is freed when nothing counts
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(label.c_str());
}

// One of each kind of edit, so that writing them into the text has work in every kind of list.
void edit_a_little(AIPEditor& editor) {
    editor.set_directive("maxcyc", "7");
    editor.add_method_token("hf");
    editor.set_section_entry("scf", "conv", "0.5");
    editor.upsert_section("notes", {});
    editor.set_xyz_geometry(0, 1, {{"H", 0, 0, 0, "", {}}});
}

// As if every record had been added by an edit.
AIPData without_places(AIPData data) {
    for (Directive& directive : data.directives) {
        directive.location.reset();
    }
    for (MethodToken& token : data.method_tokens) {
        token.location.reset();
    }
    for (Section& section : data.sections) {
        section.location.reset();
        for (SectionEntry& entry : section.entries) {
            entry.location.reset();
        }
        for (AtomRecord& atom : section.atoms) {
            atom.location.reset();
        }
    }
    data.header_comments.clear();
    data.preserved_lines.clear();
    return data;
}

void measure_text(const TextCase& one, const InputSchema& known, std::size_t size) {
    const std::string text = one.text(size);
    const auto named = [&](const char* operation) { return std::string(operation) + ": " + one.name; };
    measure(named("parse"), size, [&] { return AIPParser::parse_string(text, known, {true, false}); });
    measure(named("parse, known only"), size, [&] { return AIPParser::parse_string(text, known, {false, true}); });
    AIPEditor editor(AIPParser::parse_string(text, known, {true, false}).data, known);
    measure(named("validate"), size, [&] { return editor.validate(); });
    measure(named("render"), size, [&] { return editor.render(); });
    measure(named("render_over, no edit"), size, [&] { return editor.render_over(text); });
    edit_a_little(editor);
    measure(named("render_over, some edits"), size, [&] { return editor.render_over(text); });
    editor.set_data({});
    measure(named("render_over, all removed"), size, [&] { return editor.render_over(text); });
    editor.set_data(without_places(AIPParser::parse_string(text, known, {true, false}).data));
    measure(named("render_over, all new"), size, [&] { return editor.render_over("! hf\n"); });
    measure(named("render_over, all replaced"), size, [&] { return editor.render_over(text); });
    measure(named("looks_like_amesp_input"), size, [&] { return AIPParser::looks_like_amesp_input(text); });
}

void measure_findings(const TextCase& one, const SchemaSource& known, std::size_t size) {
    const std::string text = one.text(size);
    measure(std::string("diagnose: ") + one.name, size, [&] { return diagnose(text, known); });
    measure(std::string("fix_all: ") + one.name, size, [&] { return fix_all(text, known, Applicability::likely); });
}

// Directives, tokens, sections and entries: half of one name, half all different.
std::string text_of_everything(std::size_t n) {
    const auto each = [&](const char* piece) { return repeated(n, piece); };
    return each("% d? x\n% maxcyc 1\n") + "!" + each(" hf t?") + "\n>scf\n" + each("e? 1\nmaxcyc 1\n") + "end\n" +
           each(">s?\nend\n>notes\nx\nend\n");
}

void measure_edit(const EditCase& one, const InputSchema& known, std::size_t size) {
    const std::string text = text_of_everything(size);
    AIPEditor editor(AIPParser::parse_string(text, known, {true, false}).data, known);
    measure(std::string("edit: ") + one.name, size, [&] {
        one.run(editor, size);
        return 0;
    });
    measure(std::string("render_over, after: ") + one.name, size, [&] { return editor.render_over(text); });
}

void measure_names(const NameCase& one, std::size_t size) {
    const std::vector<std::string> names = one.names(size);
    StringMap<int> map;
    measure(std::string("map of names, filling: ") + one.name, size, [&] {
        for (const std::string& name : names) {
            map.emplace(name, 0);
        }
        return 0;
    });
    measure(std::string("map of names, look-up: ") + one.name, size, [&] {
        for (const std::string& name : names) {
            ++map.at(name);
        }
        return 0;
    });
}

void measure_all(std::size_t size) {
    const InputSchema& known = schema(size);
    for (const auto& cases : {text_cases(), long_line_cases()}) {
        for (const TextCase& one : cases) {
            measure_text(one, known, size);
            measure_findings(one, known, size);
        }
    }
    const SchemaSource many_names = InputSchema::from_yaml(yaml_of_many_names(size));
    for (const TextCase& one : finding_cases()) {
        measure_findings(one, many_names, size);
    }
    for (const EditCase& one : edit_cases()) {
        measure_edit(one, known, size);
    }
    for (const NameCase& one : name_cases()) {
        measure_names(one, size);
    }
    for (const SchemaCase& one : schema_cases()) {
        const std::string yaml = one.yaml(size);
        measure(std::string("from_yaml: ") + one.name, size, [&] { return InputSchema::from_yaml(yaml); });
    }
}

}  // namespace
}  // namespace velk::test

int main(int argc, char** argv) {
    const long size = argc == 2 ? std::strtol(argv[1], nullptr, 10) : 0;
    if (size <= 0) {
        return 2;
    }
    // What one operation has freed shall not be put in order at the cost of another.
    static_cast<void>(::mallopt(M_MXFAST, 0));
    velk::test::measure_all(static_cast<std::size_t>(size));
    velk::test::measure_all(static_cast<std::size_t>(size) * velk::test::factor);
    return 0;
}
