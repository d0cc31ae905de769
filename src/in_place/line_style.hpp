// How the lines "name value" of one list are laid out, and lines that join them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp::in_place {

// Lines that are laid out over more bytes than this are no model for others: each of them would be as long.
inline constexpr std::size_t widest_layout = 256;

// Views into one line, in their order.
struct NamedLine {
    std::string_view indent;  // up to the name
    std::string_view name;
    std::string_view separator;  // between the name and the value
    bool has_value = false;
};

struct LineStyle {
    std::string_view indent;
    std::string_view head;   // of the separator, before its padding
    std::size_t column = 0;  // where the padding ends, counted from the start of the line; 0: there is no padding
    std::string_view tail;   // of the separator, after its padding
};

// The style of most of the lines; of equally common ones the last. Indentations are those of all lines; separators
// count where there is a value, and nothing but blanks, tabs and a '=' before it. `otherwise` is what no line tells.
//
// The separator is padded up to a column when that accounts for more of the lines than one separator repeated does, or
// for as many: then it takes two lines, or a padding of two blanks. The column is that of the '=' or of the values,
// else of the values after "=" alone.
LineStyle style_of(std::vector<NamedLine> lines, const LineStyle& otherwise);

// A line of that style; without a value nothing follows the name. One that is too long for the column is followed by
// one blank.
std::string line_in_style(const LineStyle& style, std::string_view name, std::string_view value);

}  // namespace velk::input::amesp::in_place
