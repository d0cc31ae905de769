// The characters that are taken for others.
#include "diagnostics/odd_characters.hpp"

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

#include "model/utf8.hpp"

namespace velk::input::amesp {
namespace {

struct OddKind {
    char32_t first = 0;
    char32_t last = 0;
    std::string_view name;
    char plain = '\0';
    bool turns_text = false;
};

constexpr auto kinds = std::to_array<OddKind>({
    {0xA0, 0xA0, "no-break space", ' '},
    {0xAD, 0xAD, "soft hyphen"},
    {0x61C, 0x61C, "mark of writing direction"},
    {0x1680, 0x1680, "space of another script", ' '},
    {0x2000, 0x200A, "space of typesetters", ' '},
    {0x200B, 0x200B, "zero-width space"},
    {0x200C, 0x200D, "zero-width joiner"},
    {0x200E, 0x200F, "mark of writing direction"},
    {0x202A, 0x202E, "change of writing direction", '\0', true},
    {0x202F, 0x202F, "narrow no-break space", ' '},
    {0x205F, 0x205F, "space of typesetters", ' '},
    {0x2060, 0x2060, "word joiner"},
    {0x2066, 0x2069, "change of writing direction", '\0', true},
    {0x3000, 0x3000, "ideographic space", ' '},
    {0xFEFF, 0xFEFF, "byte-order mark"},
});

constexpr char32_t full_width_offset = 0xFEE0;  // of the ASCII characters' full-width forms

std::optional<OddKind> kind_of(char32_t code) {
    for (const OddKind& kind : kinds) {
        if (code >= kind.first && code <= kind.last) {
            return kind;
        }
    }
    constexpr std::string_view forms = "!#%+-.;=>0123456789";
    if (code > full_width_offset && code < full_width_offset + 0x7F) {
        const char plain = static_cast<char>(code - full_width_offset);
        if (forms.find(plain) != std::string_view::npos) {
            return OddKind{code, code, "full-width form", plain, false};
        }
    }
    return std::nullopt;
}

// The text with what `write` appends in the place of each.
template <class Write>
std::string replaced(std::string_view text, Write write) {
    std::string result;
    std::size_t done = 0;
    for (const OddCharacter& odd : find_odd_characters(text)) {
        result += text.substr(done, odd.offset - done);
        write(result, odd);
        done = odd.offset + odd.bytes;
    }
    result += text.substr(done);
    return result;
}

}  // namespace

std::size_t find_beyond_ascii(std::string_view text) {
    constexpr std::uint64_t high_bits = 0x8080808080808080U;
    std::size_t i = 0;
    for (std::uint64_t bytes = 0; text.size() - i >= sizeof bytes; i += sizeof bytes) {
        std::memcpy(&bytes, text.data() + i, sizeof bytes);
        if ((bytes & high_bits) != 0) {
            break;
        }
    }
    while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80U) {
        ++i;
    }
    return i;
}

std::vector<OddCharacter> find_odd_characters(std::string_view text) {
    std::vector<OddCharacter> found;
    std::size_t offset = find_beyond_ascii(text);
    while (offset < text.size()) {
        const Character character = first_character(text.substr(offset));
        if (const std::optional<OddKind> kind = character.valid ? kind_of(character.code) : std::nullopt) {
            found.push_back({offset, character.bytes, character.code, kind->name, kind->plain, kind->turns_text});
        }
        offset += character.bytes;
        offset += find_beyond_ascii(text.substr(offset));
    }
    return found;
}

std::string with_plain_characters(std::string_view text) {
    return replaced(text, [](std::string& out, const OddCharacter& odd) {
        if (odd.plain != '\0') {
            out += odd.plain;
        }
    });
}

std::string code_point(char32_t code) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string name = "U+";
    for (int shift = 12; shift >= 0; shift -= 4) {
        name += digits[code >> static_cast<unsigned>(shift) & 0xFU];
    }
    return name;
}

std::string with_odd_characters_shown(std::string_view text) {
    return replaced(text, [](std::string& out, const OddCharacter& odd) { out += "<" + code_point(odd.code) + ">"; });
}

}  // namespace velk::input::amesp
