// How lines "name value" are laid out.
#include "in_place/line_style.hpp"

#include <algorithm>
#include <optional>

#include "in_place/most_common.hpp"

namespace velk::input::amesp::in_place {
namespace {

// A separator cut where it may be padded.
struct PaddedSeparator {
    std::string_view head;
    std::string_view padding;
    std::string_view tail;
};

PaddedSeparator padded_in_front(std::string_view separator) {
    const std::size_t stop = std::min(separator.find_first_not_of(' '), separator.size());
    return {{}, separator.substr(0, stop), separator.substr(stop)};
}

PaddedSeparator padded_at_the_end(std::string_view separator) {
    const std::size_t begin = separator.find_last_not_of(' ') + 1;  // npos + 1 is 0
    return {separator.substr(0, begin), separator.substr(begin), {}};
}

bool is_plain(const NamedLine& line) {
    return line.has_value && line.separator.find_first_not_of(" \t=") == std::string_view::npos;
}

bool has_equals(const NamedLine& line) {
    return line.separator.find('=') != std::string_view::npos;
}

// Those with a plain separator, of the kind that most of them have: with or without '='.
std::vector<NamedLine> lines_that_count(const std::vector<NamedLine>& lines) {
    std::vector<NamedLine> plain;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(plain), is_plain);
    std::vector<char> kinds;
    std::transform(plain.begin(), plain.end(), std::back_inserter(kinds), has_equals);
    const bool wanted = most_common(kinds).value != 0;
    std::erase_if(plain, [&](const NamedLine& line) { return has_equals(line) != wanted; });
    return plain;
}

// The style of those of the lines that are padded up to the most common column; nothing when a separator that is
// repeated so many times says more.
template <class Cut>
std::optional<LineStyle> column_style(const std::vector<NamedLine>& lines, Cut cut, std::size_t repeated) {
    std::vector<std::size_t> columns;
    for (const NamedLine& line : lines) {
        const PaddedSeparator parts = cut(line.separator);
        const bool padded = !parts.padding.empty() && line.separator.find('\t') == std::string_view::npos;
        columns.push_back(padded ? line.indent.size() + line.name.size() + parts.head.size() + parts.padding.size()
                                 : 0);
    }
    std::vector<std::size_t> found = columns;
    std::erase(found, std::size_t{0});
    const Common<std::size_t> column = most_common(found);
    std::vector<std::string_view> heads;
    std::vector<std::string_view> tails;
    std::size_t widest = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (columns[i] == column.value) {
            const PaddedSeparator parts = cut(lines[i].separator);
            heads.push_back(parts.head);
            tails.push_back(parts.tail);
            widest = std::max(widest, parts.padding.size());
        }
    }
    const bool says_as_much = column.count == repeated && (column.count > 1 || widest > 1);
    if (column.count <= repeated && !says_as_much) {
        return std::nullopt;
    }
    return LineStyle{{}, most_common(heads).value, column.value, most_common(tails).value};
}

LineStyle separator_style(const std::vector<NamedLine>& lines, const LineStyle& otherwise) {
    const std::vector<NamedLine> counting = lines_that_count(lines);
    if (counting.empty()) {
        return otherwise;
    }
    std::vector<std::string_view> separators;
    separators.reserve(counting.size());
    for (const NamedLine& line : counting) {
        separators.push_back(line.separator);
    }
    const Common<std::string_view> separator = most_common(separators);
    if (const auto in_front = column_style(counting, padded_in_front, separator.count)) {
        return *in_front;
    }
    if (const auto at_the_end = column_style(counting, padded_at_the_end, separator.count)) {
        return *at_the_end;
    }
    return {{}, separator.value, 0, {}};
}

}  // namespace

LineStyle style_of(std::vector<NamedLine> lines, const LineStyle& otherwise) {
    std::erase_if(lines, [](const NamedLine& line) {
        return line.indent.size() + line.name.size() + line.separator.size() > widest_layout;
    });
    if (lines.empty()) {
        return otherwise;
    }
    LineStyle style = separator_style(lines, otherwise);
    std::vector<std::string_view> indents;
    indents.reserve(lines.size());
    for (const NamedLine& line : lines) {
        indents.push_back(line.indent);
    }
    style.indent = most_common(indents).value;
    return style;
}

std::string line_in_style(const LineStyle& style, std::string_view name, std::string_view value) {
    std::string line(style.indent);
    line += name;
    if (value.empty()) {
        return line;
    }
    line += style.head;
    if (style.column != 0) {
        line.resize(std::max(style.column, line.size() + 1), ' ');
    }
    line += style.tail;
    line += value;
    return line;
}

}  // namespace velk::input::amesp::in_place
