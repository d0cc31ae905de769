// Words that stand where a coordinate should, held against each way in which numbers go wrong.
#include "diagnostics/coordinate_words.hpp"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "model/numbers.hpp"
#include "model/utf8.hpp"

namespace velk::input::amesp {
namespace {

constexpr bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool is_sign(char c) {
    return c == '+' || c == '-';
}

constexpr bool is_exponent_letter(char c) {
    return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

bool is_number(std::string_view text) {
    return read_real(text).has_value();
}

bool holds_digit(std::string_view text) {
    return std::any_of(text.begin(), text.end(), is_digit);
}

bool holds_point(std::string_view text) {
    return text.find('.') != std::string_view::npos;
}

bool is_overflow(std::string_view word) {
    return !word.empty() && word.find_first_not_of('*') == std::string_view::npos;
}

const char* name_of_dash(char32_t code) {
    switch (code) {
        case 0x2212:
            return "U+2212, the minus of typesetters";
        case 0x2013:
            return "U+2013, an en dash";
        case 0x2014:
            return "U+2014, an em dash";
        default:
            return nullptr;
    }
}

// The word with '-' for every dash, and what the first one is called; null when there is none.
std::pair<std::string, const char*> with_plain_signs(std::string_view word) {
    std::string plain;
    const char* first = nullptr;
    while (!word.empty()) {
        const Character character = first_character(word);
        const char* const dash = name_of_dash(character.code);
        plain += dash == nullptr ? word.substr(0, character.bytes) : std::string_view("-");
        first = first == nullptr ? dash : first;
        word.remove_prefix(character.bytes);
    }
    return {std::move(plain), first};
}

// The place of a comma that stands for a decimal point: the only one, between digits, in a word without points.
std::optional<std::size_t> decimal_comma(std::string_view word) {
    const std::size_t comma = word.find(',');
    if (comma == std::string_view::npos || word.find(',', comma + 1) != std::string_view::npos || holds_point(word)) {
        return std::nullopt;
    }
    const bool between_digits =
        comma > 0 && comma + 1 < word.size() && is_digit(word[comma - 1]) && is_digit(word[comma + 1]);
    return between_digits ? std::optional(comma) : std::nullopt;
}

// The word with digits for the letters that look like them, and the first of these.
std::pair<std::string, char> with_digits_for_letters(std::string_view word) {
    std::string text(word);
    char first = '\0';
    for (char& c : text) {
        if (c == 'l' || c == 'O' || c == 'o') {
            first = first == '\0' ? c : first;
            c = c == 'l' ? '1' : '0';
        }
    }
    return {std::move(text), first};
}

// Parted before every sign that begins no exponent.
std::vector<std::string_view> parts_of(std::string_view word) {
    std::vector<std::string_view> parts;
    std::size_t begin = 0;
    for (std::size_t i = 1; i < word.size(); ++i) {
        if (is_sign(word[i]) && !is_exponent_letter(word[i - 1])) {
            parts.push_back(word.substr(begin, i - begin));
            begin = i;
        }
    }
    parts.push_back(word.substr(begin));
    return parts;
}

std::optional<CoordinateWord> grown_together(std::string_view word) {
    const std::vector<std::string_view> parts = parts_of(word);
    if (parts.size() == 1 || !std::all_of(parts.begin(), parts.end(), is_number)) {
        return std::nullopt;
    }
    CoordinateWord read;
    read.count = parts.size();
    read.applicability = Applicability::likely;
    if (std::all_of(parts.begin(), parts.end(), holds_point)) {
        for (const std::string_view part : parts) {
            read.numbers += read.numbers.empty() ? "" : " ";
            read.numbers += part;
        }
        read.fault = "is several numbers grown together, write '" + read.numbers + "'";
        return read;
    }
    if (parts.size() == 2 && holds_point(parts[0])) {
        read.count = 1;
        read.fault = "may be a number with its exponent, write '" + std::string(parts[0]) + "e" +
                     std::string(parts[1]) + "', or two numbers grown together, write a blank between them";
        return read;
    }
    read.fault = "is several numbers grown together, write blanks between them";
    return read;
}

bool is_out_of_range(std::string_view word) {
    const auto letter = std::find_if(word.begin(), word.end(), is_exponent_letter);
    const auto mantissa = static_cast<std::size_t>(letter - word.begin());
    std::string_view exponent = word.substr(std::min(mantissa + 1, word.size()));
    exponent.remove_prefix(!exponent.empty() && is_sign(exponent.front()) ? 1 : 0);
    return !exponent.empty() && std::all_of(exponent.begin(), exponent.end(), is_digit) &&
           is_number(word.substr(0, mantissa));
}

CoordinateWord instead(std::string fault, std::string number, Applicability applicability) {
    fault += ", write '" + number + "'";
    return {std::move(fault), std::move(number), 1, applicability};
}

// Of a word that holds none of the signs and commas that are put right beyond doubt.
CoordinateWord read_plain(std::string_view word) {
    auto [digits, letter] = with_digits_for_letters(word);
    if (letter != '\0' && (holds_digit(word) || holds_point(word)) && is_number(digits)) {
        return instead("has the letter '" + std::string(1, letter) + "' in the place of a digit", std::move(digits),
                       Applicability::likely);
    }
    if (std::optional<CoordinateWord> grown = grown_together(word)) {
        return std::move(*grown);
    }
    if (is_out_of_range(word)) {
        return {"is out of the range of numbers", {}};
    }
    if (word.find(',') != std::string_view::npos && holds_digit(word)) {
        return {"holds a comma: part the columns with blanks, and write decimals with a point", {}};
    }
    return {"is no number", {}};
}

}  // namespace

CoordinateWord read_coordinate(std::string_view word) {
    if (is_number(word)) {
        return {};
    }
    if (is_overflow(word)) {
        return {"is what Fortran prints for a number too wide for its column, which is lost", {}};
    }
    auto [plain, dash] = with_plain_signs(word);
    const std::optional<std::size_t> comma = decimal_comma(plain);
    if (comma) {
        plain[*comma] = '.';
    }
    if ((dash != nullptr || comma) && is_number(plain)) {
        return instead(dash == nullptr ? "has a decimal comma" : "has " + std::string(dash) + ", for a sign",
                       std::move(plain), Applicability::certain);
    }
    return read_plain(plain);
}

bool resembles_number(std::string_view word) {
    if (is_overflow(word) || is_number(word)) {
        return true;
    }
    if (!holds_digit(word)) {
        return !read_coordinate(word).numbers.empty();
    }
    constexpr std::string_view beginnings = "+-.,lOo";
    return is_digit(word.front()) || beginnings.find(word.front()) != std::string_view::npos ||
           name_of_dash(first_character(word).code) != nullptr;
}

}  // namespace velk::input::amesp
