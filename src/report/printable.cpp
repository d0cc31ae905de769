// What of a text may reach a terminal.
#include <cstddef>

#include <velk/input/amesp/report.hpp>

#include "model/utf8.hpp"

namespace velk::input::amesp {
namespace {

bool turns_direction(char32_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

bool is_printable(const Character& character, Layout layout) {
    const char32_t code = character.code;
    if (code == '\t') {
        return layout != Layout::none;
    }
    if (code == '\n') {
        return layout == Layout::lines;
    }
    const bool is_control = code < 0x20 || (code >= 0x7F && code < 0xA0);
    return character.valid && !is_control && !turns_direction(code);
}

}  // namespace

std::string_view take_printable(std::string_view& text, Layout layout) {
    std::size_t size = 0;
    while (size < text.size()) {
        const Character next = first_character(text.substr(size));
        if (!is_printable(next, layout)) {
            if (size == 0) {
                text.remove_prefix(next.bytes);
                return "?";
            }
            break;
        }
        size += next.bytes;
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

}  // namespace velk::input::amesp
