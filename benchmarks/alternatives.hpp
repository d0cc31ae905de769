// What the comparisons with other libraries share: the coordinates and pairs that all of them read or write.
#pragma once

#include <string>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/parser.hpp>

#include "table.hpp"
#include "texts.hpp"

namespace velk::bench {

using input::amesp::AIPData;
using input::amesp::AIPParser;
using input::amesp::AtomRecord;

constexpr Target coordinates_target = at_most(0.55);
constexpr Target pairs_target = at_most(0.6);
constexpr Target writing_target = at_most(0.45);

// What a user keeps of a line of coordinates.
struct Site {
    std::string symbol;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline const std::string& ten_thousand_atoms() {
    static const std::string text = coordinates_text(10000);
    return text;
}

inline auto parse_coordinates() {
    return AIPParser::parse_string(ten_thousand_atoms(), schema(), {});
}

inline const std::vector<AtomRecord>& atoms() {
    static const AIPData data = parse_coordinates().data;
    return data.sections[0].atoms;
}

// With ten decimals, as in the text.
std::string coordinate_text(double value);

// But for the last digits, which not every alternative gets right.
bool is_near(double a, double b);
bool is_same(const std::vector<Site>& sites, const std::vector<AtomRecord>& atoms);

// As many pairs as there are keys: what no TOML file may hold twice.
inline constexpr std::size_t pair_count = 250;

inline const std::string& pairs_text() {
    static const std::string text = entries_text(pair_count);
    return text;
}

inline auto parse_pairs() {
    return AIPParser::parse_string(pairs_text(), schema(), {});
}

}  // namespace velk::bench
