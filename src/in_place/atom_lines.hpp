// The lines of single atoms, laid out like those that are there.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/document.hpp>

#include "in_place/line_table.hpp"

namespace velk::input::amesp::in_place {

inline std::array<double, 3> coordinates(const AtomRecord& atom) {
    return {atom.x, atom.y, atom.z};
}

inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

inline bool same_atom(const AtomRecord& a, const AtomRecord& b) {
    return a.symbol == b.symbol && same_bits(a.x, b.x) && same_bits(a.y, b.y) && same_bits(a.z, b.z);
}

// What the numbers of an axis have in common: where they stand one below the other.
enum class Anchor { point, end, begin };

struct AxisStyle {
    std::optional<Anchor> anchor;  // none: they make no column
    std::size_t column = 0;        // of the anchor
    std::optional<int> decimals;   // of most numbers without exponent
};

using AtomStyle = std::array<AxisStyle, 3>;

// Of the atoms that were read from the text, of many only the first thousand. A column is what more than half of the
// lines have in common.
AtomStyle atom_style(const LineTable& lines, const std::vector<AtomRecord>& atoms);

// The line of an atom with that indentation; empty when no line reads back as the atom. Numbers have the decimals of
// their axis, else those of the axis that has most, else as many as it takes.
std::string atom_line(const AtomRecord& atom, std::string_view indent, const AtomStyle& style);

std::string_view words_after_coordinates(std::string_view line);

// The line of `before` with the words that differ replaced; empty when no line reads back as `after`. A number keeps
// its decimals where it can. What stands in a column stays in it where the blanks before it leave room for that.
// Words after the coordinates stay only when the symbol does.
std::string changed_atom_line(std::string_view line, const AtomRecord& before, const AtomRecord& after,
                              const AtomStyle& style);

}  // namespace velk::input::amesp::in_place
