// Characters that look like blanks, like nothing or like the marks and digits of the format, and are none of these.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp {

struct OddCharacter {
    std::size_t offset = 0;  // in the text that it was found in
    std::size_t bytes = 0;
    char32_t code = 0;
    std::string_view name;
    char plain = '\0';        // what stands for it in ASCII; 0 for nothing
    bool turns_text = false;  // the direction in which what follows is shown

    bool operator==(const OddCharacter&) const = default;
};

std::vector<OddCharacter> find_odd_characters(std::string_view text);

// The text with all of them replaced.
std::string with_plain_characters(std::string_view text);

// "U+00A0".
std::string code_point(char32_t code);

// The text with "<U+00A0>" in the place of such a character.
std::string with_odd_characters_shown(std::string_view text);

// Where the first byte that is not ASCII stands; the size of a text that has none.
std::size_t find_beyond_ascii(std::string_view text);

}  // namespace velk::input::amesp
