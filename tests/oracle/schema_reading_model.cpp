// The model of the loader of schemas: every key is looked up for itself, in the order of the format's description.
//
// Nodes are const throughout: a subscript of one that is not would add the key.
#include "oracle/schema_reading_model.hpp"

#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include "oracle/plain_text.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

bool is(const YAML::Node& node, YAML::NodeType::value type) {
    return node.IsDefined() && node.Type() == type;
}

// As the text `word` already is when there is no scalar.
void take_word(const YAML::Node& node, std::string& word) {
    if (is(node, YAML::NodeType::Scalar)) {
        word = key(node.Scalar());
    }
}

void take_flag(const YAML::Node& node, bool& flag) {
    if (is(node, YAML::NodeType::Scalar)) {
        flag = node.as<bool>();
    }
}

std::vector<std::string> words(const YAML::Node& node) {
    std::vector<std::string> list;
    if (is(node, YAML::NodeType::Scalar)) {
        list.push_back(key(node.Scalar()));
    }
    if (is(node, YAML::NodeType::Sequence)) {
        for (const YAML::Node& item : node) {
            if (is(item, YAML::NodeType::Scalar)) {
                list.push_back(key(item.Scalar()));
            }
        }
    }
    return list;
}

std::optional<double> bound(const YAML::Node& node) {
    double number = 0.0;
    if (is(node, YAML::NodeType::Scalar) && YAML::convert<double>::decode(node, number)) {
        return number;
    }
    return std::nullopt;
}

template <class Read>
void each_named(const YAML::Node& mapping, Read read) {
    if (!is(mapping, YAML::NodeType::Map)) {
        return;
    }
    for (const auto& pair : mapping) {
        if (is(pair.first, YAML::NodeType::Scalar)) {
            const YAML::Node& body = pair.second;
            read(key(pair.first.Scalar()), body);
        }
    }
}

void add_aliases(StringMap<std::string>& aliases, const std::string& name, const YAML::Node& body) {
    aliases[name] = name;
    for (const std::string& alias : words(body["aliases"])) {
        aliases[alias] = name;
    }
}

void read_values(const YAML::Node& mapping, StringMap<ValueSpec>& values, StringMap<std::string>& aliases) {
    each_named(mapping, [&](const std::string& name, const YAML::Node& body) {
        ValueSpec spec;
        spec.name = name;
        if (is(body, YAML::NodeType::Map)) {
            take_word(body["value_type"], spec.value_type);
            spec.allowed = words(body["allowed"]);
            spec.min = bound(body["min"]);
            spec.max = bound(body["max"]);
            take_flag(body["required"], spec.required);
        }
        values[name] = spec;
        add_aliases(aliases, name, body);
    });
}

SectionParseMode mode_named(const std::string& word) {
    if (word == "key_value" || word == "key-value") {
        return SectionParseMode::key_value;
    }
    const bool cartesian = word == "cartesian_coordinates" || word == "coordinates" || word == "xyz";
    return cartesian ? SectionParseMode::cartesian_coordinates : SectionParseMode::raw;
}

SectionSpec read_section(const std::string& name, const YAML::Node& body) {
    SectionSpec spec;
    spec.name = name;
    if (is(body, YAML::NodeType::Map)) {
        std::string mode;
        take_word(body["parse_mode"], mode);
        spec.parse_mode = mode_named(mode);
        take_flag(body["required"], spec.required);
        take_flag(body["allow_multiple"], spec.allow_multiple);
        read_values(body["entries"], spec.entries, spec.entry_aliases);
    }
    return spec;
}

Tables read_tables(const YAML::Node& root) {
    Tables tables;
    read_values(root["directives"], tables.directives, tables.directive_aliases);
    each_named(root["method_tokens"], [&](const std::string& name, const YAML::Node& body) {
        MethodSpec spec;
        spec.name = name;
        if (is(body, YAML::NodeType::Map)) {
            take_word(body["category"], spec.category);
        }
        tables.method_tokens[name] = spec;
        add_aliases(tables.method_token_aliases, name, body);
    });
    each_named(root["method_prefixes"], [&](const std::string& prefix, const YAML::Node& body) {
        MethodPrefixSpec spec;
        spec.prefix = prefix;
        if (is(body, YAML::NodeType::Map)) {
            take_word(body["category"], spec.category);
            take_word(body["applies_to_category"], spec.applies_to_category);
        }
        tables.method_prefixes.push_back(spec);
    });
    std::stable_sort(tables.method_prefixes.begin(), tables.method_prefixes.end(),
                     [](const auto& a, const auto& b) { return a.prefix.size() > b.prefix.size(); });
    each_named(root["sections"], [&](const std::string& name, const YAML::Node& body) {
        tables.sections[name] = read_section(name, body);
        add_aliases(tables.section_aliases, name, body);
    });
    return tables;
}

}  // namespace

SchemaReading read_schema(const std::string& yaml) {
    if (trim(yaml).empty()) {
        return {std::make_shared<Tables>(), ""};
    }
    try {
        return {std::make_shared<Tables>(read_tables(YAML::Load(yaml))), ""};
    } catch (const std::exception& error) {
        return {nullptr, error.what()};
    }
}

}  // namespace velk::oracle
