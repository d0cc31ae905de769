// The lines of single atoms.
#include "in_place/atom_lines.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

#include "in_place/most_common.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"
#include "model/exact_coordinate.hpp"
#include "model/numbers.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp::in_place {
namespace {

constexpr std::size_t atom_words = 4;

// The words of a line, and the line.
struct AtomWords {
    std::string_view line;
    std::vector<std::string_view> words;

    std::string_view number(std::size_t axis) const { return words[axis + 1]; }
    std::size_t begin(std::size_t word) const { return offset_in(line, words[word]); }
    std::size_t end(std::size_t word) const { return begin(word) + words[word].size(); }
    std::string_view gap_after(std::size_t word) const { return line.substr(end(word), begin(word + 1) - end(word)); }
};

// Where the anchor of a number is, counted from its first byte. A number without a point has it after its digits.
std::size_t anchor_offset(Anchor anchor, std::string_view number) {
    switch (anchor) {
        case Anchor::begin:
            return 0;
        case Anchor::end:
            return number.size();
        case Anchor::point:
            break;
    }
    return std::min(number.find_first_of(".eEdD"), number.size());
}

// Nothing for a number with an exponent, and for one with more decimals than a double can use.
std::optional<int> decimals_of(std::string_view number) {
    constexpr std::size_t most = 20;
    if (number.find_first_not_of("+-.0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t point = number.find('.');
    if (point == std::string_view::npos) {
        return 0;
    }
    const std::size_t decimals = number.size() - point - 1;
    return decimals <= most ? std::optional(static_cast<int>(decimals)) : std::nullopt;
}

AxisStyle axis_style(const std::vector<AtomWords>& lines, std::size_t axis) {
    AxisStyle style;
    std::vector<int> decimals;
    for (const AtomWords& line : lines) {
        if (const std::optional<int> count = decimals_of(line.number(axis))) {
            decimals.push_back(*count);
        }
    }
    if (!decimals.empty()) {
        style.decimals = most_common(decimals).value;
    }
    for (const Anchor anchor : {Anchor::point, Anchor::end, Anchor::begin}) {
        std::vector<std::size_t> columns;
        columns.reserve(lines.size());
        for (const AtomWords& line : lines) {
            columns.push_back(line.begin(axis + 1) + anchor_offset(anchor, line.number(axis)));
        }
        const Common<std::size_t> column = most_common(columns);
        if (2 * column.count > lines.size()) {
            style.anchor = anchor;
            style.column = column.value;
            break;
        }
    }
    return style;
}

bool reads_as(std::string_view text, double value) {
    const std::optional<double> read = read_real(text);
    return read && same_bits(*read, value);
}

// Empty when no text is read as the value.
std::string number_text(double value, std::optional<int> decimals, const AtomStyle& style) {
    std::optional<int> widest;
    for (const AxisStyle& axis : style) {
        widest = std::max(widest, axis.decimals);
    }
    for (const std::optional<int> count : {decimals, widest}) {
        std::string text;
        if (count) {
            append_fixed(text, value, *count);
        }
        if (count && reads_as(text, value)) {
            return text;
        }
    }
    std::string text;
    return append_exact_coordinate(text, value) ? text : std::string();
}

bool is_symbol(std::string_view symbol) {
    return !symbol.empty() && std::none_of(symbol.begin(), symbol.end(), core::text::is_space) &&
           classify(symbol) != LineKind::comment;
}

// Where a number has to begin to stand in the column of its axis; 0 when there is none, or no room before it.
std::size_t place_in(const AxisStyle& style, std::string_view number) {
    const std::size_t offset = style.anchor ? anchor_offset(*style.anchor, number) : 0;
    return style.anchor && style.column > offset ? style.column - offset : 0;
}

bool keeps_column(const AxisStyle& style, const AtomWords& old, std::size_t axis) {
    return place_in(style, old.number(axis)) == old.begin(axis + 1);
}

// White space after a line, up to what shall stand at `place`: one made of blanks gives or takes them.
void append_gap(std::string& line, std::string_view gap, std::size_t place) {
    if (place > line.size() && gap.find_first_not_of(' ') == std::string_view::npos) {
        line.resize(place, ' ');
    } else {
        line += gap;
    }
}

}  // namespace

AtomStyle atom_style(const LineTable& lines, const std::vector<AtomRecord>& atoms) {
    constexpr std::size_t most = 1000;
    std::vector<AtomWords> sample;
    for (std::size_t i = 0; i < std::min(atoms.size(), most); ++i) {
        const std::string_view line = lines.raw(line_of(atoms[i]));
        const AtomWords words{line, words_from(line, 0)};
        if (words.end(atom_words - 1) <= widest_layout) {
            sample.push_back(words);
        }
    }
    return {axis_style(sample, 0), axis_style(sample, 1), axis_style(sample, 2)};
}

std::string atom_line(const AtomRecord& atom, std::string_view indent, const AtomStyle& style) {
    if (!is_symbol(atom.symbol)) {
        return {};
    }
    std::string line(indent);
    line += atom.symbol;
    for (std::size_t axis = 0; axis < style.size(); ++axis) {
        const std::string number = number_text(coordinates(atom)[axis], style[axis].decimals, style);
        if (number.empty()) {
            return {};
        }
        line.resize(std::max(place_in(style[axis], number), line.size() + 1), ' ');
        line += number;
    }
    return line;
}

std::string_view words_after_coordinates(std::string_view line) {
    std::string_view rest = line;
    for (std::size_t i = 0; i < atom_words; ++i) {
        core::text::take_word(rest);
    }
    return core::text::trim_view(rest);
}

std::string changed_atom_line(std::string_view line, const AtomRecord& before, const AtomRecord& after,
                              const AtomStyle& style) {
    if (!is_symbol(after.symbol)) {
        return {};
    }
    const AtomWords old{line, words_from(line, 0)};
    std::string result(line.substr(0, old.begin(0)));
    result += after.symbol;
    for (std::size_t axis = 0; axis < style.size(); ++axis) {
        std::string number(old.number(axis));
        if (!same_bits(coordinates(before)[axis], coordinates(after)[axis])) {
            number = number_text(coordinates(after)[axis], decimals_of(number), style);
        }
        if (number.empty()) {
            return {};
        }
        append_gap(result, old.gap_after(axis),
                   keeps_column(style[axis], old, axis) ? place_in(style[axis], number) : 0);
        result += number;
    }
    if (old.words.size() <= atom_words) {
        result += line.substr(old.end(atom_words - 1));
    } else if (before.symbol == after.symbol) {
        const std::string_view gap = old.gap_after(atom_words - 1);
        append_gap(result, gap, gap.size() > 1 ? old.begin(atom_words) : 0);
        result += line.substr(old.begin(atom_words));
    }
    return result;
}

}  // namespace velk::input::amesp::in_place
