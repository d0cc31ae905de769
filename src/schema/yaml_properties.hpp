// The properties of a YAML node, its anchor and its tag, which yaml-cpp's events give no places of.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace velk::input::amesp {

// What a node is known to have before its value.
struct YamlProperties {
    std::size_t anchor_name_size = 0;  // 0 without an anchor
    bool tagged = false;
};

struct YamlPropertyPlaces {
    std::size_t value = 0;  // of what comes after the properties, white space and comments
    std::optional<std::size_t> anchor;
};

// Of the node whose first property, or value without any, stands at `begin` of a text that yaml-cpp has read so far.
YamlPropertyPlaces find_yaml_properties(std::string_view text, std::size_t begin, YamlProperties properties);

}  // namespace velk::input::amesp
