// The schema's YAML format. The only file that sees yaml-cpp.
//
// Nodes are taken as const throughout: subscripting a node that is not const would add the key to it.
#include <algorithm>
#include <filesystem>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include <yaml-cpp/yaml.h>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "model/key.hpp"

namespace velk::input::amesp {
namespace {

using Aliases = StringMap<std::string>;

bool is_scalar(const YAML::Node& node) {
    return node.IsDefined() && node.IsScalar();
}

bool is_map(const YAML::Node& node) {
    return node.IsDefined() && node.IsMap();
}

std::string read_key(const YAML::Node& scalar) {
    return normalize_key(scalar.Scalar());
}

// The scalar under `name`, normalised, unless there is none.
void read_word(const YAML::Node& body, const char* name, std::string& word) {
    const YAML::Node node = body[name];
    if (is_scalar(node)) {
        word = read_key(node);
    }
}

// A scalar that is no YAML boolean makes the load fail.
void read_flag(const YAML::Node& body, const char* name, bool& flag) {
    const YAML::Node node = body[name];
    if (is_scalar(node)) {
        flag = node.as<bool>();
    }
}

std::vector<std::string> read_string_list(const YAML::Node& node) {
    std::vector<std::string> list;
    if (is_scalar(node)) {
        list.push_back(read_key(node));
    } else if (node.IsDefined() && node.IsSequence()) {
        for (const YAML::Node& item : node) {
            if (is_scalar(item)) {
                list.push_back(read_key(item));
            }
        }
    }
    return list;
}

// yaml-cpp reads numbers through a stream in the process's C++ locale; this is its reading in the classic one.
std::optional<double> read_stream_double(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    stream.exceptions(std::ios::badbit);  // else a failed allocation would pass for text that is no number
    double value = 0.0;
    if ((stream >> std::noskipws >> value) && (stream >> std::ws).eof()) {
        return value;
    }
    return std::nullopt;
}

std::optional<double> read_optional_double(const YAML::Node& node) {
    if (!is_scalar(node)) {
        return std::nullopt;
    }
    if (const std::optional<double> value = read_stream_double(node.Scalar())) {
        return value;
    }
    double special = 0.0;  // the spellings of infinity and NaN
    if (YAML::convert<double>::decode(node, special) && (special != special || special - special != 0.0)) {
        return special;
    }
    return std::nullopt;
}

void add_aliases(Aliases& aliases, const std::string& canonical, const YAML::Node& body) {
    aliases[canonical] = canonical;
    for (const std::string& alias : read_string_list(body["aliases"])) {
        aliases[alias] = canonical;
    }
}

ValueSpec read_value_spec(const std::string& name, const YAML::Node& node) {
    ValueSpec spec;
    spec.name = name;
    if (is_map(node)) {
        read_word(node, "value_type", spec.value_type);
        spec.allowed = read_string_list(node["allowed"]);
        spec.min = read_optional_double(node["min"]);
        spec.max = read_optional_double(node["max"]);
        read_flag(node, "required", spec.required);
    }
    return spec;
}

// Calls `read(name, body)` for each pair of the mapping `parent[key]`, in document order; for nothing if it is none.
template <class Read>
void for_each_named(const YAML::Node& parent, const char* key, Read read) {
    const YAML::Node mapping = parent[key];
    if (!is_map(mapping)) {
        return;
    }
    for (const auto& pair : mapping) {
        if (is_scalar(pair.first)) {
            const YAML::Node& body = pair.second;
            read(read_key(pair.first), body);
        }
    }
}

void read_values(const YAML::Node& parent, const char* key, StringMap<ValueSpec>& values, Aliases& aliases) {
    for_each_named(parent, key, [&](const std::string& name, const YAML::Node& body) {
        values[name] = read_value_spec(name, body);
        add_aliases(aliases, name, body);
    });
}

MethodSpec read_method_spec(const std::string& name, const YAML::Node& body) {
    MethodSpec spec;
    spec.name = name;
    if (is_map(body)) {
        read_word(body, "category", spec.category);
    }
    return spec;
}

MethodPrefixSpec read_prefix_spec(const std::string& prefix, const YAML::Node& body) {
    MethodPrefixSpec spec;
    spec.prefix = prefix;
    if (is_map(body)) {
        read_word(body, "category", spec.category);
        read_word(body, "applies_to_category", spec.applies_to_category);
    }
    return spec;
}

SectionParseMode parse_mode_named(const std::string& word) {
    if (word == "key_value" || word == "key-value") {
        return SectionParseMode::key_value;
    }
    if (word == "cartesian_coordinates" || word == "coordinates" || word == "xyz") {
        return SectionParseMode::cartesian_coordinates;
    }
    return SectionParseMode::raw;
}

SectionSpec read_section_spec(const std::string& name, const YAML::Node& body) {
    SectionSpec spec;
    spec.name = name;
    if (is_map(body)) {
        std::string mode;
        read_word(body, "parse_mode", mode);
        spec.parse_mode = parse_mode_named(mode);
        read_flag(body, "required", spec.required);
        read_flag(body, "allow_multiple", spec.allow_multiple);
        read_values(body, "entries", spec.entries, spec.entry_aliases);
    }
    return spec;
}

std::shared_ptr<const InputSchema::Impl> build_schema(const YAML::Node& root) {
    auto tables = std::make_shared<InputSchema::Impl>();
    read_values(root, "directives", tables->directives, tables->directive_aliases);
    for_each_named(root, "method_tokens", [&](const std::string& name, const YAML::Node& body) {
        tables->method_tokens[name] = read_method_spec(name, body);
        add_aliases(tables->method_token_aliases, name, body);
    });
    for_each_named(root, "method_prefixes", [&](const std::string& prefix, const YAML::Node& body) {
        tables->method_prefixes.push_back(read_prefix_spec(prefix, body));
    });
    std::stable_sort(tables->method_prefixes.begin(), tables->method_prefixes.end(),
                     [](const auto& a, const auto& b) { return a.prefix.size() > b.prefix.size(); });
    for_each_named(root, "sections", [&](const std::string& name, const YAML::Node& body) {
        tables->sections[name] = read_section_spec(name, body);
        add_aliases(tables->section_aliases, name, body);
    });
    return tables;
}

YAML::Node load_file(const std::string& path) {
    // A stream opens a directory and reads nothing from it, which would pass for an empty schema.
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw YAML::BadFile(path);
    }
    return YAML::LoadFile(path);
}

}  // namespace

InputSchema InputSchema::from_yaml(std::string_view text) {
    if (core::text::trim_view(text).empty()) {
        return {};
    }
    try {
        return InputSchema(build_schema(YAML::Load(std::string(text))));
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("failed to parse AMESP input schema YAML: ") + error.what());
    }
}

InputSchema InputSchema::from_file(const std::string& path) {
    try {
        return InputSchema(build_schema(load_file(path)));
    } catch (const std::exception& error) {
        throw std::runtime_error("failed to load AMESP input schema '" + path + "': " + error.what());
    }
}

}  // namespace velk::input::amesp
