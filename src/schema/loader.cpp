// The schema's YAML format. The only file that sees yaml-cpp.
//
// Nodes are taken as const throughout: subscripting a node that is not const would add the key to it.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <locale>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <yaml-cpp/yaml.h>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "model/key.hpp"

namespace velk::input::amesp {
namespace {

using Aliases = StringMap<std::string>;

std::string read_key(const YAML::Node& scalar) {
    return normalize_key(scalar.Scalar());
}

using Value = std::optional<YAML::Node>;

// What stands in a body under some names, found in one pass; no value where there is none or the body is no mapping.
// Subscripting would walk the mapping for each name, and make a text for each that is missing.
template <std::size_t Count>
std::array<Value, Count> values_under(const YAML::Node& body, const std::string_view (&names)[Count]) {
    if (!body.IsMap()) {
        return {};
    }
    std::array<Value, Count> values;
    for (const auto& pair : body) {
        const auto* const name = pair.first.IsScalar()
                                     ? std::find(std::begin(names), std::end(names), pair.first.Scalar())
                                     : std::end(names);
        if (name == std::end(names)) {
            continue;
        }
        if (Value& value = values[static_cast<std::size_t>(name - std::begin(names))]; !value) {
            value.emplace(pair.second);
        }
    }
    return values;
}

// The scalar, normalised, unless there is none.
void read_word(const Value& value, std::string& word) {
    if (value && value->IsScalar()) {
        word = read_key(*value);
    }
}

// A scalar that is no YAML boolean makes the load fail.
void read_flag(const Value& value, bool& flag) {
    if (value && value->IsScalar()) {
        flag = value->as<bool>();
    }
}

std::vector<std::string> read_string_list(const Value& value) {
    if (!value) {
        return {};
    }
    std::vector<std::string> list;
    if (value->IsScalar()) {
        list.push_back(read_key(*value));
    } else if (value->IsSequence()) {
        for (const YAML::Node& item : *value) {
            if (item.IsScalar()) {
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

// The same for plain decimals, which most bounds are, without a stream.
std::optional<double> read_plain_double(const std::string& text) {
    double value = 0.0;
    const char* const end = std::to_address(text.end());
    const auto [stop, error] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    const bool is_plain = text.find_first_not_of("-.0123456789") == std::string::npos;
    return is_plain && error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<double> read_bound(const Value& bound) {
    if (!bound || !bound->IsScalar()) {
        return std::nullopt;
    }
    const YAML::Node& node = *bound;
    if (const std::optional<double> value = read_plain_double(node.Scalar())) {
        return value;
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

void add_aliases(Aliases& aliases, const std::string& canonical, const Value& list) {
    aliases[canonical] = canonical;
    for (const std::string& alias : read_string_list(list)) {
        aliases[alias] = canonical;
    }
}

// Calls `read(name, body)` for each pair of the mapping, in document order; for nothing if it is none.
template <class Read>
void for_each_named(const Value& mapping, Read read) {
    if (!mapping || !mapping->IsMap()) {
        return;
    }
    for (const auto& pair : *mapping) {
        if (pair.first.IsScalar()) {
            const YAML::Node& body = pair.second;
            read(read_key(pair.first), body);
        }
    }
}

// The same for bodies that may have aliases: a scalar makes the load fail, by a subscript that it does not have.
template <class Read>
void for_each_body(const Value& mapping, Read read) {
    for_each_named(mapping, [&](const std::string& name, const YAML::Node& body) {
        if (body.IsScalar()) {
            static_cast<void>(body["aliases"]);
        }
        read(name, body);
    });
}

void read_values(const Value& mapping, StringMap<ValueSpec>& values, Aliases& aliases) {
    for_each_body(mapping, [&](const std::string& name, const YAML::Node& body) {
        const auto [value_type, allowed, min, max, required, alias_list] =
            values_under(body, {"value_type", "allowed", "min", "max", "required", "aliases"});
        ValueSpec spec;
        spec.name = name;
        read_word(value_type, spec.value_type);
        spec.allowed = read_string_list(allowed);
        spec.min = read_bound(min);
        spec.max = read_bound(max);
        read_flag(required, spec.required);
        values[name] = std::move(spec);
        add_aliases(aliases, name, alias_list);
    });
}

void read_method_tokens(const Value& mapping, InputSchema::Impl& tables) {
    for_each_body(mapping, [&](const std::string& name, const YAML::Node& body) {
        const auto [category, alias_list] = values_under(body, {"category", "aliases"});
        MethodSpec spec;
        spec.name = name;
        read_word(category, spec.category);
        tables.method_tokens[name] = std::move(spec);
        add_aliases(tables.method_token_aliases, name, alias_list);
    });
}

void read_method_prefixes(const Value& mapping, InputSchema::Impl& tables) {
    for_each_named(mapping, [&](const std::string& prefix, const YAML::Node& body) {
        const auto [category, applies_to] = values_under(body, {"category", "applies_to_category"});
        MethodPrefixSpec spec;
        spec.prefix = prefix;
        read_word(category, spec.category);
        read_word(applies_to, spec.applies_to_category);
        tables.method_prefixes.push_back(std::move(spec));
    });
    std::stable_sort(tables.method_prefixes.begin(), tables.method_prefixes.end(),
                     [](const auto& a, const auto& b) { return a.prefix.size() > b.prefix.size(); });
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

void read_sections(const Value& mapping, InputSchema::Impl& tables) {
    for_each_body(mapping, [&](const std::string& name, const YAML::Node& body) {
        const auto [parse_mode, required, allow_multiple, entries, alias_list] =
            values_under(body, {"parse_mode", "required", "allow_multiple", "entries", "aliases"});
        SectionSpec spec;
        spec.name = name;
        std::string mode;
        read_word(parse_mode, mode);
        spec.parse_mode = parse_mode_named(mode);
        read_flag(required, spec.required);
        read_flag(allow_multiple, spec.allow_multiple);
        read_values(entries, spec.entries, spec.entry_aliases);
        tables.sections[name] = std::move(spec);
        add_aliases(tables.section_aliases, name, alias_list);
    });
}

std::shared_ptr<const InputSchema::Impl> build_schema(const YAML::Node& root) {
    auto tables = std::make_shared<InputSchema::Impl>();
    if (root.IsScalar()) {
        static_cast<void>(root["directives"]);
    }
    const auto [directives, tokens, prefixes, sections] =
        values_under(root, {"directives", "method_tokens", "method_prefixes", "sections"});
    read_values(directives, tables->directives, tables->directive_aliases);
    read_method_tokens(tokens, *tables);
    read_method_prefixes(prefixes, *tables);
    read_sections(sections, *tables);
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
