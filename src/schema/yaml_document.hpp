// A YAML text as plain values with the places of its keys and values. yaml_document.cpp alone sees yaml-cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp {

// Line and column count from 1, columns in bytes of the text as UTF-8 without a byte-order mark, as the messages of
// yaml-cpp do; the offset counts bytes of the text itself from 0.
struct YamlPlace {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    std::uint32_t offset = 0;

    bool operator==(const YamlPlace&) const = default;
};

enum class YamlKind : std::uint8_t { null, scalar, sequence, mapping, alias };

// A node, to be read where it stands: what it holds comes after it.
struct YamlNode {
    YamlKind kind = YamlKind::null;
    std::uint32_t size = 1;      // how many nodes it is, with all that it holds
    std::uint32_t distance = 0;  // of an alias: how many nodes before it stands what it is an alias of
    YamlPlace begin;  // of its anchor or tag; without them the same as `place`, as also with the empty tag, !<>
    YamlPlace place;  // of the value; where none is written, of what is written next
    std::optional<YamlPlace> anchor;
    std::string scalar;  // its value, quotes and escapes resolved
};

// Aliases refer to their node, however often there are any, so that a document is never larger than its text is.
struct YamlDocument {
    std::vector<YamlNode> nodes;  // in the order of the text; the root first, and at least that

    const YamlNode& root() const { return nodes.front(); }
};

// The first document of the text, a null if there is none. Throws yaml-cpp's exceptions, and so does what follows, each
// a std::runtime_error that names the line and column of the text or node.
YamlDocument read_yaml(std::string_view text);
YamlDocument read_yaml_file(const std::string& path);

// What an alias stands for; any other node is itself. It may be a node that holds the alias.
inline const YamlNode& yaml_value(const YamlNode& node) {
    return *(&node - node.distance);
}

// The node after this one and all that it holds: within a sequence or mapping the next item, key or value.
inline const YamlNode* next_yaml_node(const YamlNode& node) {
    return &node + node.size;
}

// Calls `visit(item)` for each item of a sequence, and for keys and values of a mapping by turns; nothing else has any.
template <class Visit>
void for_each_yaml_item(const YamlNode& collection, Visit visit) {
    for (const YamlNode* item = &collection + 1; item != next_yaml_node(collection); item = next_yaml_node(*item)) {
        visit(*item);
    }
}

// Calls `visit(key, value)` for each pair of a mapping.
template <class Visit>
void for_each_yaml_pair(const YamlNode& mapping, Visit visit) {
    for (const YamlNode* key = &mapping + 1; key != next_yaml_node(mapping);) {
        const YamlNode& value = *next_yaml_node(*key);
        visit(*key, value);
        key = next_yaml_node(value);
    }
}

// Of a scalar; throws if it is none of YAML's words for them.
bool yaml_boolean(const YamlNode& scalar);

// YAML's words for infinities and what is no number.
std::optional<double> yaml_special_number(const std::string& text);

[[noreturn]] void throw_yaml_subscript(const YamlNode& scalar, const char* key);

}  // namespace velk::input::amesp
