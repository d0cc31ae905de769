// amesp-inp show: a parsed document as JSON, every record with every field.
#include "show.hpp"

#include <optional>
#include <string>
#include <vector>
#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "json_writer.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

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

// One function for each kind of value, and the fields of each record in their order.
class DocumentWriter {
public:
    explicit DocumentWriter(JsonWriter& json) : json_(json) {}

    // With the name of its file where it stands among others.
    void write(const std::optional<std::string>& file, const AIPData& data, const std::string& schema_path) {
        json_.begin_object();
        if (file) {
            field("file", *file);
        }
        field("format", std::string("amesp-inp document"));
        field("version", std::int32_t{1});
        field("schema", schema_path);
        field("header_comments", data.header_comments);
        field("directives", data.directives);
        field("method_tokens", data.method_tokens);
        field("sections", data.sections);
        field("preserved_lines", data.preserved_lines);
        field("warnings", data.warnings);
        json_.end_object();
    }

private:
    template <class Value>
    void field(const char* name, const Value& value) {
        json_.key(name);
        put(value);
    }

    void put(const std::string& text) { json_.string(text); }
    void put(bool value) { json_.boolean(value); }
    void put(double value) { json_.number(value); }
    void put(std::int32_t value) { json_.integer(value); }
    void put(std::uint64_t value) { json_.size(value); }

    template <class Value>
    void put(const std::optional<Value>& value) {
        if (value) {
            put(*value);
        } else {
            json_.null();
        }
    }

    template <class Value>
    void put(const std::vector<Value>& values) {
        json_.begin_list();
        for (const Value& value : values) {
            put(value);
        }
        json_.end_list();
    }

    void put(const SourceLocation& location) {
        json_.begin_object();
        field("line", location.line);
        field("column", location.column);
        field("length", location.length);
        json_.end_object();
    }

    void put(const Directive& directive) {
        json_.begin_object();
        field("name", directive.name);
        field("value", directive.value);
        field("known", directive.known);
        field("location", directive.location);
        json_.end_object();
    }

    void put(const MethodToken& token) {
        json_.begin_object();
        field("text", token.text);
        field("canonical", token.canonical);
        field("category", token.category);
        field("known", token.known);
        field("location", token.location);
        json_.end_object();
    }

    void put(const SectionEntry& entry) {
        json_.begin_object();
        field("key", entry.key);
        field("value", entry.value);
        field("known", entry.known);
        field("raw_line", entry.raw_line);
        field("location", entry.location);
        json_.end_object();
    }

    void put(const AtomRecord& atom) {
        json_.begin_object();
        field("symbol", atom.symbol);
        field("x", atom.x);
        field("y", atom.y);
        field("z", atom.z);
        field("raw_line", atom.raw_line);
        field("location", atom.location);
        json_.end_object();
    }

    void put(const Section& section) {
        json_.begin_object();
        field("name", section.name);
        field("arguments", section.arguments);
        field("parse_mode", std::string(name_of(section.parse_mode)));
        field("known", section.known);
        field("terminated", section.terminated);
        field("charge", section.charge);
        field("multiplicity", section.multiplicity);
        field("entries", section.entries);
        field("atoms", section.atoms);
        field("raw_lines", section.raw_lines);
        field("location", section.location);
        json_.end_object();
    }

    void put(const ParseWarning& warning) {
        json_.begin_object();
        field("code", warning.code);
        field("message", warning.message);
        field("location", warning.location);
        json_.end_object();
    }

    JsonWriter& json_;
};

}  // namespace

int run_show(const ShowOptions& options) {
    const std::string schema_path = find_schema(options.schema);
    const InputSchema schema = load_schema_file(schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    JsonWriter json;
    const auto show = [&](const Input& input, const std::optional<std::string>& name) {
        const std::string text = read_input(input);
        DocumentWriter(json).write(name, AIPParser::parse_string(text, schema, {true, false}).data, schema_path);
    };
    if (is_one_file(options.inputs, inputs)) {
        show(inputs.front(), std::nullopt);
        json.finish();
        return exit_clean;
    }
    json.begin_list();
    const int status = for_each_input(inputs, [&](const Input& input) {
        show(input, input.name);
        return exit_clean;
    });
    json.end_list();
    json.finish();
    return status;
}

}  // namespace amesp_inp
