// The lines of an input text and what kind each of them is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/document.hpp>

#include "model/key.hpp"

namespace velk::input::amesp {

// Views into the text that is read.
struct Line {
    std::string_view raw;   // without its line end
    std::string_view text;  // without surrounding white space
    std::uint64_t number = 0;

    // Of a line that begins with a marker: where the marker stands.
    SourceLocation location() const {
        return {number, static_cast<std::uint64_t>(text.data() - raw.data()) + 1, text.size()};
    }

    // Of a line in a section that is not blank: the first byte that is neither blank nor tab.
    SourceLocation body_location() const {
        std::size_t begin = 0;
        while (raw[begin] == ' ' || raw[begin] == '\t') {
            ++begin;
        }
        return {number, begin + 1, text.size()};
    }
};

// Walks over the lines of a text, which must outlive the lines taken.
class LineCursor {
public:
    explicit LineCursor(std::string_view text) : rest_(text) {}

    // False at the end of the text.
    bool next(Line& line) {
        if (!core::text::take_line(rest_, line.raw)) {
            return false;
        }
        line.text = core::text::trim_view(line.raw);
        line.number = ++number_;
        return true;
    }

    // What is left of the text.
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
    std::uint64_t number_ = 0;
};

enum class LineKind { blank, comment, directive, method_line, section_header, other };

// What means something outside of sections, and is read as part of the section inside.
constexpr bool is_marked(LineKind kind) {
    return kind == LineKind::directive || kind == LineKind::method_line || kind == LineKind::section_header;
}

// By the first characters alone.
inline LineKind classify(std::string_view text) {
    if (text.empty()) {
        return LineKind::blank;
    }
    switch (text.front()) {
        case '#':
        case ';':
            return LineKind::comment;
        case '/':
            return text.starts_with("//") ? LineKind::comment : LineKind::other;
        case '%':
            return LineKind::directive;
        case '!':
            return LineKind::method_line;
        case '>':
            return LineKind::section_header;
        default:
            return LineKind::other;
    }
}

// The value, with white space around it, in what follows the name in a line: it comes after the first blank or tab.
// Other white space ends a name, too, but begins no value.
inline std::string_view value_behind(std::string_view name_end) {
    const std::size_t blank = name_end.find_first_of(" \t");
    return name_end.substr(blank == std::string_view::npos ? name_end.size() : blank + 1);
}

inline bool is_section_end(std::string_view text) {
    constexpr std::string_view end = "end";
    return text.size() == end.size() && to_lower(text[0]) == end[0] && to_lower(text[1]) == end[1] &&
           to_lower(text[2]) == end[2];
}

// The same of a line as written: few lines need to be looked at as a whole.
inline bool ends_section(std::string_view raw) {
    std::size_t begin = 0;
    while (begin < raw.size() && core::text::is_space(raw[begin])) {
        ++begin;
    }
    return begin < raw.size() && to_lower(raw[begin]) == 'e' && is_section_end(core::text::trim_view(raw));
}

}  // namespace velk::input::amesp
