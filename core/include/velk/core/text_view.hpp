// Views into text: white space, lines and words, with nothing copied. The one definition of what white space is.
#pragma once

#include <cstddef>
#include <string_view>

namespace velk::core::text {

// Blank, tab, line feed, vertical tab, form feed, carriage return: what the C library's number readers skip, in the
// classic locale. Independent of the process locale.
constexpr bool is_space(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// `text` without white space at its ends. At a blank text's own start when nothing is left.
constexpr std::string_view trim_view(std::string_view text) noexcept {
    std::size_t begin = 0;
    while (begin < text.size() && is_space(text[begin])) {
        ++begin;
    }
    std::size_t end = text.size();
    while (end > begin && is_space(text[end - 1])) {
        --end;
    }
    return text.substr(begin, end - begin);
}

// Takes the next line off the front of `rest`: false when `rest` is empty. A line ends at a line feed or at the end of
// the text; the line feed, and a carriage return right before it, belong to no line.
inline bool take_line(std::string_view& rest, std::string_view& line) noexcept {
    if (rest.empty()) {
        return false;
    }
    const std::size_t feed = rest.find('\n');
    if (feed == std::string_view::npos) {
        line = rest;
        rest = {};
        return true;
    }
    line = rest.substr(0, feed);
    rest.remove_prefix(feed + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return true;
}

// Takes the next word off the front of `rest`, with the white space before it; empty when none is left.
constexpr std::string_view take_word(std::string_view& rest) noexcept {
    std::size_t begin = 0;
    while (begin < rest.size() && is_space(rest[begin])) {
        ++begin;
    }
    std::size_t end = begin;
    while (end < rest.size() && !is_space(rest[end])) {
        ++end;
    }
    const std::string_view word = rest.substr(begin, end - begin);
    rest.remove_prefix(end);
    return word;
}

}  // namespace velk::core::text
