// What of a text may reach a terminal.
#include "printable.hpp"

#include <array>
#include <cstddef>

namespace amesp_inp {
namespace {

struct Character {
    char32_t code;
    std::size_t length;
};

constexpr char32_t last_code = 0x10FFFF;
constexpr Character no_character = {last_code + 1, 1};

// Strict: a terminal that takes a longer spelling than is needed would find a control character in it.
Character first_character(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80U) {
        return {byte(0), 1};
    }
    if (byte(0) < 0xC2U || byte(0) > 0xF4U) {
        return no_character;
    }
    const std::size_t length = byte(0) >= 0xF0U ? 4 : byte(0) >= 0xE0U ? 3 : 2;
    if (text.size() < length) {
        return no_character;
    }
    char32_t code = byte(0) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) {
            return no_character;
        }
        code = code << 6U | (byte(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = code >= 0xD800 && code < 0xE000;
    return code < least[length] || code > last_code || is_surrogate ? no_character : Character{code, length};
}

bool turns_direction(char32_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

bool is_printable(char32_t code, Layout layout) {
    if (code == '\t') {
        return layout != Layout::none;
    }
    if (code == '\n') {
        return layout == Layout::lines;
    }
    const bool is_control = code < 0x20 || (code >= 0x7F && code < 0xA0);
    return !is_control && code <= last_code && !turns_direction(code);
}

}  // namespace

std::string_view take_printable(std::string_view& text, Layout layout) {
    std::size_t size = 0;
    while (size < text.size()) {
        const Character next = first_character(text.substr(size));
        if (!is_printable(next.code, layout)) {
            if (size == 0) {
                text.remove_prefix(next.length);
                return "?";
            }
            break;
        }
        size += next.length;
    }
    const std::string_view taken = text.substr(0, size);
    text.remove_prefix(size);
    return taken;
}

void append_printable(std::string& out, std::string_view text, Layout layout) {
    while (!text.empty()) {
        out += take_printable(text, layout);
    }
}

}  // namespace amesp_inp
