// The schema's YAML format.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <locale>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "model/key.hpp"
#include "schema/yaml_document.hpp"

namespace velk::input::amesp {
namespace {

using Aliases = StringMap<std::string>;

std::string read_key(const YamlNode& scalar) {
    return normalize_key(scalar.scalar);
}

// None where there is no value, else the node itself or what it is an alias of.
using Value = const YamlNode*;

bool is_of(YamlKind kind, Value value) {
    return value != nullptr && value->kind == kind;
}

// What stands in a body under some names, found in one pass; no value where there is none or the body is no mapping.
template <std::size_t Count>
std::array<Value, Count> values_under(const YamlNode& body, const std::string_view (&names)[Count]) {
    std::array<Value, Count> values{};
    if (body.kind != YamlKind::mapping) {
        return values;
    }
    for_each_yaml_pair(body, [&](const YamlNode& key, const YamlNode& pair_value) {
        const YamlNode& name_node = yaml_value(key);
        const auto* const name = name_node.kind == YamlKind::scalar
                                     ? std::find(std::begin(names), std::end(names), name_node.scalar)
                                     : std::end(names);
        if (name == std::end(names)) {
            return;
        }
        if (Value& value = values[static_cast<std::size_t>(name - std::begin(names))]; value == nullptr) {
            value = &yaml_value(pair_value);
        }
    });
    return values;
}

// The scalar, normalised, unless there is none.
void read_word(Value value, std::string& word) {
    if (is_of(YamlKind::scalar, value)) {
        word = read_key(*value);
    }
}

// A scalar that is no YAML boolean makes the load fail.
void read_flag(Value value, bool& flag) {
    if (is_of(YamlKind::scalar, value)) {
        flag = yaml_boolean(*value);
    }
}

std::vector<std::string> read_string_list(Value value) {
    std::vector<std::string> list;
    if (is_of(YamlKind::scalar, value)) {
        list.push_back(read_key(*value));
    } else if (is_of(YamlKind::sequence, value)) {
        for_each_yaml_item(*value, [&](const YamlNode& item) {
            if (yaml_value(item).kind == YamlKind::scalar) {
                list.push_back(read_key(yaml_value(item)));
            }
        });
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

std::optional<double> read_bound(Value bound) {
    if (!is_of(YamlKind::scalar, bound)) {
        return std::nullopt;
    }
    if (const std::optional<double> value = read_plain_double(bound->scalar)) {
        return value;
    }
    if (const std::optional<double> value = read_stream_double(bound->scalar)) {
        return value;
    }
    return yaml_special_number(bound->scalar);
}

void add_aliases(Aliases& aliases, const std::string& canonical, Value list) {
    aliases[canonical] = canonical;
    for (const std::string& alias : read_string_list(list)) {
        aliases[alias] = canonical;
    }
}

// Calls `read(name, body)` for each pair of the mapping, in document order; for nothing if it is none.
template <class Read>
void for_each_named(Value mapping, Read read) {
    if (!is_of(YamlKind::mapping, mapping)) {
        return;
    }
    for_each_yaml_pair(*mapping, [&](const YamlNode& name, const YamlNode& body) {
        if (yaml_value(name).kind == YamlKind::scalar) {
            read(read_key(yaml_value(name)), yaml_value(body));
        }
    });
}

// The same for bodies that may have aliases: a scalar makes the load fail, by a subscript that it does not have.
template <class Read>
void for_each_body(Value mapping, Read read) {
    for_each_named(mapping, [&](const std::string& name, const YamlNode& body) {
        if (body.kind == YamlKind::scalar) {
            throw_yaml_subscript(body, "aliases");
        }
        read(name, body);
    });
}

void read_values(Value mapping, StringMap<ValueSpec>& values, Aliases& aliases) {
    for_each_body(mapping, [&](const std::string& name, const YamlNode& body) {
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

void read_method_tokens(Value mapping, InputSchema::Impl& tables) {
    for_each_body(mapping, [&](const std::string& name, const YamlNode& body) {
        const auto [category, alias_list] = values_under(body, {"category", "aliases"});
        MethodSpec spec;
        spec.name = name;
        read_word(category, spec.category);
        tables.method_tokens[name] = std::move(spec);
        add_aliases(tables.method_token_aliases, name, alias_list);
    });
}

void read_method_prefixes(Value mapping, InputSchema::Impl& tables) {
    for_each_named(mapping, [&](const std::string& prefix, const YamlNode& body) {
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

void read_sections(Value mapping, InputSchema::Impl& tables) {
    for_each_body(mapping, [&](const std::string& name, const YamlNode& body) {
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

std::shared_ptr<const InputSchema::Impl> build_schema(const YamlNode& root) {
    auto tables = std::make_shared<InputSchema::Impl>();
    if (root.kind == YamlKind::scalar) {
        throw_yaml_subscript(root, "directives");
    }
    const auto [directives, tokens, prefixes, sections] =
        values_under(root, {"directives", "method_tokens", "method_prefixes", "sections"});
    read_values(directives, tables->directives, tables->directive_aliases);
    read_method_tokens(tokens, *tables);
    read_method_prefixes(prefixes, *tables);
    read_sections(sections, *tables);
    return tables;
}

}  // namespace

InputSchema InputSchema::from_yaml(std::string_view text) {
    if (core::text::trim_view(text).empty()) {
        return {};
    }
    try {
        return InputSchema(build_schema(read_yaml(text).root()));
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("failed to parse AMESP input schema YAML: ") + error.what());
    }
}

InputSchema InputSchema::from_file(const std::string& path) {
    try {
        return InputSchema(build_schema(read_yaml_file(path).root()));
    } catch (const std::exception& error) {
        throw std::runtime_error("failed to load AMESP input schema '" + path + "': " + error.what());
    }
}

}  // namespace velk::input::amesp
