// Numbers on the command line and in XYZ files.
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace amesp_inp {

// A leading '+' is allowed before a digit or a point; anything left over is no number.
template <class Number>
std::optional<Number> read_number(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

// A finite coordinate; exponents may be written with d.
inline std::optional<double> read_coordinate(std::string_view text) {
    std::string word(text);
    std::replace(word.begin(), word.end(), 'D', 'e');
    std::replace(word.begin(), word.end(), 'd', 'e');
    const std::optional<double> value = read_number<double>(word);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

// As canonical text writes coordinates.
inline std::string coordinate_text(double value) {
    constexpr int decimals = 10;
    std::string text(std::numeric_limits<double>::max_exponent10 + decimals + 4, '\0');
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

}  // namespace amesp_inp
