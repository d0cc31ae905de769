// Edits of single words of a line that leave every other byte alone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp::in_place {

// The words of `line` from `offset` on, as views into it.
inline std::vector<std::string_view> words_from(std::string_view line, std::size_t offset) {
    std::vector<std::string_view> words;
    std::string_view rest = line.substr(offset);
    for (std::string_view word = core::text::take_word(rest); !word.empty(); word = core::text::take_word(rest)) {
        words.push_back(word);
    }
    return words;
}

// A header line up to the end of its name: the arguments say nothing of the lines below it.
inline std::string_view opening_of(std::string_view header) {
    std::string_view rest = header.substr(header.find('>') + 1);
    core::text::take_word(rest);
    return header.substr(0, header.size() - rest.size());
}

// Where a view into `line` begins.
inline std::size_t offset_in(std::string_view line, std::string_view part) {
    return static_cast<std::size_t>(part.data() - line.data());
}

// `line` with other bytes in the place of `part`, a view into it.
inline std::string with_part(std::string_view line, std::string_view part, std::string_view text) {
    std::string result(line.substr(0, offset_in(line, part)));
    result += text;
    result += line.substr(offset_in(line, part) + part.size());
    return result;
}

// `line` with another value after `name`, a view into it. What stands in white space between the name and the value,
// but for blanks, belongs to neither and stays.
inline std::string with_value_behind(std::string_view line, std::string_view name, std::string_view value) {
    using core::text::trim_view;
    const std::size_t begin = offset_in(line, name);
    const std::string_view old = trim_view(value_behind(line.substr(begin + name.size())));
    if (old.empty() == value.empty()) {
        return old.empty() ? std::string(line) : with_part(line, old, value);
    }
    const std::size_t stop = old.empty() ? line.size() : offset_in(line, old);
    const std::string_view before = trim_view(line.substr(begin, stop - begin));
    if (old.empty()) {
        return with_part(line, before, std::string(before) + ' ' + std::string(value));
    }
    const std::size_t gap = begin + before.size();
    return with_part(line, line.substr(gap, stop + old.size() - gap), {});
}

// `line` up to the end of `words`, with `wanted` in their place: word by word, so that white space stays; further ones
// follow the last, superfluous ones go with the white space before them. The white space at the end stays.
inline std::string with_words(std::string_view line, const std::vector<std::string_view>& words,
                              const std::vector<std::string>& wanted) {
    std::string result;
    std::size_t cursor = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::size_t begin = offset_in(line, words[i]);
        if (i < wanted.size()) {
            result += line.substr(cursor, begin - cursor);
            result += wanted[i];
        }
        cursor = begin + words[i].size();
    }
    for (std::size_t i = words.size(); i < wanted.size(); ++i) {
        result += ' ';
        result += wanted[i];
    }
    result += line.substr(cursor);
    return result;
}

}  // namespace velk::input::amesp::in_place
