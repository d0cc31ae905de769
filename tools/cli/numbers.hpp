// Numbers on the command line.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

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

}  // namespace amesp_inp
