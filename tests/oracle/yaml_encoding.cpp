#include "oracle/yaml_encoding.hpp"

#include <cstdint>

namespace velk::oracle {

namespace {

// The character at the front of a text, which is shortened by it.
std::uint32_t take_character(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t size = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    std::uint32_t character = size == 1 ? first : first & (0xffU >> (size + 1));
    for (std::size_t place = 1; place < size; ++place) {
        character = character << 6U | (static_cast<unsigned char>(text[place]) & 0x3fU);
    }
    text.remove_prefix(size);
    return character;
}

void append_unit(std::string& text, std::uint32_t unit, const YamlEncoding& encoding) {
    for (std::size_t number = 0; number < encoding.unit_size; ++number) {
        const std::size_t place = encoding.big_endian ? encoding.unit_size - 1 - number : number;
        text += static_cast<char>(static_cast<unsigned char>(unit >> (8 * place) & 0xffU));
    }
}

}  // namespace

std::string encoded(std::string_view utf8, const YamlEncoding& encoding) {
    const std::string text = (encoding.byte_order_mark ? "\xef\xbb\xbf" : "") + std::string(utf8);
    if (encoding.unit_size == 1) {
        return text;
    }
    std::string result;
    for (std::string_view rest = text; !rest.empty();) {
        const std::uint32_t character = take_character(rest);
        if (encoding.unit_size == 2 && character >= 0x10000) {
            append_unit(result, 0xd800 + ((character - 0x10000) >> 10U), encoding);
            append_unit(result, 0xdc00 + (character & 0x3ffU), encoding);
        } else {
            append_unit(result, character, encoding);
        }
    }
    return result;
}

}  // namespace velk::oracle
