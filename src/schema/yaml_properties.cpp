#include "schema/yaml_properties.hpp"

#include <algorithm>

namespace velk::input::amesp {
namespace {

std::size_t end_of_tag(std::string_view text, std::size_t begin) {
    constexpr std::string_view characters =
        "!#$%&'()*+-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz~";
    if (text.substr(begin).starts_with("!<")) {
        return text.find('>', begin) + 1;
    }
    return std::min(text.find_first_not_of(characters, begin), text.size());
}

// A line feed ends a line, a carriage return before it included.
bool is_space_at(std::string_view text, std::size_t place) {
    return std::string_view(" \t\n").find(text[place]) != std::string_view::npos ||
           text.substr(place).starts_with("\r\n");
}

std::size_t after_space(std::string_view text, std::size_t place) {
    while (place < text.size()) {
        if (text[place] == '#') {
            place = std::min(text.find('\n', place), text.size());
        } else if (is_space_at(text, place)) {
            ++place;
        } else {
            break;
        }
    }
    return place;
}

}  // namespace

YamlPropertyPlaces find_yaml_properties(std::string_view text, std::size_t begin, YamlProperties properties) {
    YamlPropertyPlaces places{begin, std::nullopt};
    while (places.value < text.size()) {
        std::size_t& place = places.value;
        if (text[place] == '&' && properties.anchor_name_size > 0) {
            places.anchor = place;
            place = after_space(text, place + 1 + properties.anchor_name_size);
            properties.anchor_name_size = 0;
        } else if (text[place] == '!' && properties.tagged) {
            place = after_space(text, end_of_tag(text, place));
            properties.tagged = false;
        } else {
            break;
        }
    }
    return places;
}

}  // namespace velk::input::amesp
