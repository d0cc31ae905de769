// The model of rendering.
#include <string>

#include "oracle/editor_model.hpp"
#include "oracle/plain_numbers.hpp"
#include "oracle/plain_text.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

std::string with_value(const std::string& name, const std::string& value) {
    return trim(value).empty() ? name : name + " " + trim(value);
}

std::string header(const Section& section, const std::string& name) {
    std::string text = ">" + name;
    if (name == "xyz" && section.charge && section.multiplicity) {
        return text + " " + std::to_string(*section.charge) + " " + std::to_string(*section.multiplicity);
    }
    for (const std::string& argument : section.arguments) {
        text += " " + argument;
    }
    return text;
}

std::string body(const Section& section, const std::string& name, const SchemaModel& schema) {
    std::string text;
    if (section.parse_mode == SectionParseMode::cartesian_coordinates) {
        for (const AtomRecord& atom : section.atoms) {
            text += "  " + atom.symbol + " " + with_ten_decimals(atom.x) + " " + with_ten_decimals(atom.y) + " " +
                    with_ten_decimals(atom.z) + "\n";
        }
    }
    if (section.parse_mode == SectionParseMode::key_value) {
        for (const SectionEntry& entry : section.entries) {
            text += "  " + with_value(schema.canonical_entry(name, entry.key), entry.value) + "\n";
        }
    }
    for (const std::string& line : section.raw_lines) {
        text += line.empty() ? "\n" : "  " + trim(line) + "\n";
    }
    return text;
}

}  // namespace

std::string render(const AIPData& data, const SchemaModel& schema) {
    std::string text;
    for (const std::string& line : data.header_comments) {
        text += line + "\n";
    }
    for (const Directive& directive : data.directives) {
        text += "% " + with_value(schema.canonical_directive(directive.name), directive.value) + "\n";
    }
    if (!data.directives.empty() && !data.method_tokens.empty()) {
        text += "\n";
    }
    if (!data.method_tokens.empty()) {
        text += "!";
        for (const MethodToken& token : data.method_tokens) {
            text += " " + schema.canonical_method_token(token.canonical.empty() ? token.text : token.canonical);
        }
        text += "\n";
    }
    for (const Section& section : data.sections) {
        const std::string name = schema.canonical_section(section.name);
        text += "\n" + header(section, name) + "\n" + body(section, name, schema) + "end\n";
    }
    if (!data.preserved_lines.empty()) {
        text += "\n";
    }
    for (const std::string& line : data.preserved_lines) {
        text += line + "\n";
    }
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text + "\n";
}

}  // namespace velk::oracle
