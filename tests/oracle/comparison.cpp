// Puts one text to the library and to the model, and says where they differ.
#include "oracle/comparison.hpp"

#include <algorithm>
#include <vector>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "oracle/described.hpp"
#include "oracle/editor_model.hpp"
#include "oracle/parser_model.hpp"
#include "oracle/validation_model.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

std::string labelled(const std::string& label, const std::string& difference) {
    return difference.empty() ? "" : label + ":\n  " + difference;
}

template <class T>
std::string differing(const std::string& label, const T& library, const T& model) {
    return labelled(label, first_difference(described(library), described(model)));
}

std::string text_differing(const std::string& label, const std::string& library, const std::string& model) {
    if (library == model) {
        return {};
    }
    return label + ":\n  library:" + quoted(library) + "\n  model:  " + quoted(model);
}

std::string differing_parse(const std::string& text, const TablesHandle& tables, const ParseOptions& options) {
    return differing("parse, preserve_unknown " + std::to_string(options.preserve_unknown) + ", validate " +
                         std::to_string(options.validate),
                     AIPParser::parse_string(text, InputSchema(tables), options),
                     parse(text, SchemaModel(*tables), options));
}

// What a document gives under a schema: that it was read under, or another one.
std::string differing_use(const AIPData& data, const TablesHandle& tables, std::string& rendered) {
    const InputSchema schema(tables);
    const SchemaModel model(*tables);
    std::string difference = differing("validate", schema.validate(data), validate(data, model));
    if (!difference.empty()) {
        return difference;
    }
    rendered = AIPEditor(data, schema).render();
    return text_differing("render", rendered, render(data, model));
}

std::string differing_names(const TablesHandle& tables) {
    const auto sorted = [](const auto& table) {
        std::vector<std::string> names;
        for (const auto& row : table) {
            names.push_back(row.first);
        }
        std::sort(names.begin(), names.end());
        return names;
    };
    const InputSchema schema(tables);
    if (schema.empty() != SchemaModel(*tables).empty()) {
        return "empty() of the schema";
    }
    std::string difference = differing("known_directives", schema.known_directives(), sorted(tables->directives));
    difference += differing("known_sections", schema.known_sections(), sorted(tables->sections));
    return difference + differing("known_method_tokens", schema.known_method_tokens(), sorted(tables->method_tokens));
}

std::string differing_rendering(const AIPData& data, const TablesHandle& tables) {
    std::string rendered;
    std::string difference = differing_use(data, tables, rendered);
    if (!difference.empty()) {
        return difference;
    }
    return labelled("parse of the rendering", differing_parse(rendered, tables, {true, true}));
}

}  // namespace

std::string difference_in_reading(const std::string& text, const TablesHandle& tables, const TablesHandle& other) {
    if (AIPParser::looks_like_amesp_input(text) != looks_like_amesp_input(text)) {
        return "looks_like_amesp_input";
    }
    std::string difference = differing_names(tables);
    for (const ParseOptions options :
         {ParseOptions{true, false}, ParseOptions{true, true}, ParseOptions{false, true}}) {
        if (difference.empty()) {
            difference = differing_parse(text, tables, options);
        }
    }
    if (!difference.empty()) {
        return difference;
    }
    const AIPData data = parse(text, SchemaModel(*tables), {true, false}).data;
    difference = differing_rendering(data, tables);
    return difference.empty() ? labelled("under another schema", differing_rendering(data, other)) : difference;
}

std::string shrunk(std::string text, const std::function<bool(const std::string&)>& differs) {
    for (std::size_t size = text.size(); size > 0; size /= 2) {
        for (std::size_t place = 0; place < text.size();) {
            const std::string shorter = text.substr(0, place) + text.substr(std::min(place + size, text.size()));
            if (differs(shorter)) {
                text = shorter;
            } else {
                place += size;
            }
        }
    }
    return text;
}

}  // namespace velk::oracle
