// Characters of UTF-8 text.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace velk::input::amesp {

struct Character {
    char32_t code = 0;
    std::size_t bytes = 1;
    bool valid = false;
};

// The first character of a text that is not empty; one byte that is not valid where there is none. Strict: longer
// spellings than needed, surrogates and what lies beyond U+10FFFF are none, since a terminal that takes one would find
// a control character in it.
constexpr Character first_character(std::string_view text) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80U) {
        return {byte(0), 1, true};
    }
    if (byte(0) < 0xC2U || byte(0) > 0xF4U) {
        return {};
    }
    const std::size_t bytes = byte(0) >= 0xF0U ? 4 : byte(0) >= 0xE0U ? 3 : 2;
    if (text.size() < bytes) {
        return {};
    }
    char32_t code = byte(0) & (0x7FU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) {
            return {};
        }
        code = code << 6U | (byte(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = code >= 0xD800 && code < 0xE000;
    const bool is_character = code >= least[bytes] && code <= 0x10FFFF && !is_surrogate;
    return is_character ? Character{code, bytes, true} : Character();
}

}  // namespace velk::input::amesp
