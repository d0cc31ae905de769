// amesp-inp show: a parsed document as JSON, every record with every field.
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <velk/input/amesp/parser.hpp>

#include "exit_status.hpp"
#include "inputs.hpp"
#include "output.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using Json = nlohmann::ordered_json;
using namespace velk::input::amesp;

Json json_of(const std::optional<SourceLocation>& location) {
    if (!location) {
        return nullptr;
    }
    return {{"line", location->line}, {"column", location->column}, {"length", location->length}};
}

Json json_of(const std::optional<std::int32_t>& number) {
    return number ? Json(*number) : Json(nullptr);
}

Json json_of(const Directive& directive) {
    return {{"name", directive.name},
            {"value", directive.value},
            {"known", directive.known},
            {"location", json_of(directive.location)}};
}

Json json_of(const MethodToken& token) {
    return {{"text", token.text},
            {"canonical", token.canonical},
            {"category", token.category},
            {"known", token.known},
            {"location", json_of(token.location)}};
}

Json json_of(const SectionEntry& entry) {
    return {{"key", entry.key},
            {"value", entry.value},
            {"known", entry.known},
            {"raw_line", entry.raw_line},
            {"location", json_of(entry.location)}};
}

Json json_of(const AtomRecord& atom) {
    return {{"symbol", atom.symbol},
            {"x", atom.x},
            {"y", atom.y},
            {"z", atom.z},
            {"raw_line", atom.raw_line},
            {"location", json_of(atom.location)}};
}

Json json_of(const ParseWarning& warning) {
    return {{"code", warning.code}, {"message", warning.message}, {"location", json_of(warning.location)}};
}

Json json_of(const Section& section);

template <class Record>
Json json_of(const std::vector<Record>& records) {
    Json list = Json::array();
    for (const Record& record : records) {
        list.push_back(json_of(record));
    }
    return list;
}

const char* name_of(SectionParseMode mode) {
    switch (mode) {
        case SectionParseMode::key_value:
            return "key_value";
        case SectionParseMode::cartesian_coordinates:
            return "cartesian_coordinates";
        case SectionParseMode::raw:
            break;
    }
    return "raw";
}

Json json_of(const Section& section) {
    return {{"name", section.name},
            {"arguments", section.arguments},
            {"parse_mode", name_of(section.parse_mode)},
            {"known", section.known},
            {"terminated", section.terminated},
            {"charge", json_of(section.charge)},
            {"multiplicity", json_of(section.multiplicity)},
            {"entries", json_of(section.entries)},
            {"atoms", json_of(section.atoms)},
            {"raw_lines", section.raw_lines},
            {"location", json_of(section.location)}};
}

Json json_of(const AIPData& data) {
    return {{"format", "amesp-inp document"},
            {"version", 1},
            {"header_comments", data.header_comments},
            {"directives", json_of(data.directives)},
            {"method_tokens", json_of(data.method_tokens)},
            {"sections", json_of(data.sections)},
            {"preserved_lines", data.preserved_lines},
            {"warnings", json_of(data.warnings)}};
}

struct ShowOptions {
    std::string path;
    std::string schema_path;
};

int run_show(const ShowOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    const std::string text = read_input({options.path, options.path == "-" ? "<stdin>" : options.path});
    const ParseResult result = AIPParser::parse_string(text, schema, {true, false});
    print(json_of(result.data).dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
    return exit_clean;
}

}  // namespace

void add_show(CLI::App& program, Run& run) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* const show = program.add_subcommand("show", "Prints the parsed document as JSON.");
    show->footer(
        "Examples:\n"
        "  amesp-inp show water.inp\n"
        "  amesp-inp show water.inp | jq '.sections[].name'");
    show->add_option("FILE", options->path, "Input file; - is standard input")->required();
    add_schema_option(*show, options->schema_path);
    show->callback([options, &run] { run = [options] { return run_show(*options); }; });
}

}  // namespace amesp_inp
