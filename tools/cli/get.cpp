// amesp-inp get: values of an input file, for scripts.
#include "get.hpp"

#include <optional>
#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "numbers.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

std::optional<std::string> directive_value(const AIPData& data, const InputSchema& schema, const std::string& name) {
    const Directive* const directive = data.find_directive(schema.canonical_directive(name));
    return directive == nullptr ? std::nullopt : std::optional(directive->value);
}

std::optional<std::string> tokens(const AIPData& data) {
    std::string text;
    for (const MethodToken& token : data.method_tokens) {
        text += (text.empty() ? "" : " ") + token.text;
    }
    return data.method_tokens.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> integer(const std::optional<std::int32_t>& number) {
    return number ? std::optional(std::to_string(*number)) : std::nullopt;
}

std::optional<std::string> geometry_value(const Section& section, const std::string& what) {
    if (what == "charge") {
        return integer(section.charge);
    }
    if (what == "multiplicity") {
        return integer(section.multiplicity);
    }
    std::string text;
    for (const AtomRecord& atom : section.atoms) {
        text += (text.empty() ? "" : "\n") + atom.symbol + " " + coordinate_text(atom.x) + " " +
                coordinate_text(atom.y) + " " + coordinate_text(atom.z);
    }
    return section.atoms.empty() ? std::nullopt : std::optional(text);
}

// Throws std::runtime_error for a key of no known form.
std::optional<std::string> value_of(const AIPData& data, const InputSchema& schema, const std::string& key) {
    if (key == "!") {
        return tokens(data);
    }
    if (key.starts_with('%') && key.size() > 1) {
        return directive_value(data, schema, key.substr(1));
    }
    const bool of_geometry = key.starts_with('>');
    const std::size_t dot = key.find('.');
    const std::string last = dot == std::string::npos ? "" : key.substr(dot + 1);
    const bool known_part = last == "charge" || last == "multiplicity" || last == "atoms";
    if (dot == std::string::npos || last.empty() || (of_geometry && !known_part)) {
        throw std::runtime_error("'" + key + "' is no key: expected %DIRECTIVE, !, SECTION.ENTRY, " +
                                 ">SECTION.charge, >SECTION.multiplicity or >SECTION.atoms");
    }
    const std::string name = key.substr(of_geometry ? 1 : 0, dot - (of_geometry ? 1 : 0));
    const Section* const section = data.find_section(schema.canonical_section(name));
    if (section == nullptr) {
        return std::nullopt;
    }
    if (of_geometry) {
        return geometry_value(*section, last);
    }
    const SectionEntry* const entry = section->find_entry(schema.canonical_entry(section->name, last));
    return entry == nullptr ? std::nullopt : std::optional(entry->value);
}

}  // namespace

int run_get(const GetOptions& options) {
    const InputSchema schema = load_schema(options.schema);
    const Input input{options.path, options.path == "-" ? "<stdin>" : options.path};
    const AIPData data = AIPParser::parse_string(read_input(input), schema, {true, false}).data;
    int status = exit_clean;
    for (const std::string& key : options.keys) {
        if (const std::optional<std::string> value = value_of(data, schema, key)) {
            print(*value + "\n");
        } else {
            complain("'" + input.name + "' has no " + key);
            status = exit_findings;
        }
    }
    return status;
}

}  // namespace amesp_inp
