// Coordinates and key-value text against their floors; growth from a thousand records to a million.
#include <velk/input/amesp/parser.hpp>

#include "floor.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "texts.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

constexpr ParseOptions plain{};
constexpr ParseOptions validated{.preserve_unknown = true, .validate = true};

const FloorNames& names() {
    static const FloorNames all = floor_names(schema().tables());
    return all;
}

auto against_floor(std::string text, ParseOptions options) {
    const ParseResult result = AIPParser::parse_string(text, schema(), plain);
    require(result.data == floor_parse(text, names()), "the floor reads another document");
    return Contest([text, options] { return AIPParser::parse_string(text, schema(), options); },
                   [text] { return floor_parse(text, names()); });
}

// The cost per record of a large text against that of a small one.
auto growth(std::string large, double large_records, std::string small, double small_records) {
    return Contest([large] { return AIPParser::parse_string(large, schema(), plain); },
                   [small] { return AIPParser::parse_string(small, schema(), plain); }, large_records, small_records);
}

auto floor_growth(std::string large, double large_records, std::string small, double small_records) {
    return Contest([large] { return floor_parse(large, names()); }, [small] { return floor_parse(small, names()); },
                   large_records, small_records);
}

struct Size {
    const char* text;
    std::size_t count;
    double seconds;  // of measuring: a turn of the largest is long
};

constexpr Size thousand{"1e3", 1000, 1.0};
constexpr Size hundred_thousand{"1e5", 100000, 3.0};
constexpr Size million{"1e6", 1000000, 12.0};

void add_coordinate_rows(const Size& size) {
    const std::string count = size.text;
    add_pair(
        "parse " + count + " atoms / floor", at_most(1.0),
        [=] { return against_floor(coordinates_text(size.count), plain); }, size.seconds);
    add_pair(
        "parse and validate " + count + " atoms / floor", at_most(1.03),
        [=] { return against_floor(coordinates_text(size.count), validated); }, size.seconds);
}

void add_entry_rows(const Size& size) {
    const std::string count = size.text;
    add_pair(
        "parse " + count + " entries / floor", at_most(1.2),
        [=] { return against_floor(entries_text(size.count), plain); }, size.seconds);
    add_pair(
        "parse and validate " + count + " entries / floor", at_most(1.5),
        [=] { return against_floor(entries_text(size.count), validated); }, size.seconds);
}

void add_rows() {
    add_coordinate_rows(thousand);
    add_coordinate_rows(hundred_thousand);
    add_coordinate_rows(million);
    add_pair(
        "parse, per atom: 1e6 / 1e3 atoms", at_most(1.4),
        [] { return growth(coordinates_text(1000000), 1e6, coordinates_text(1000), 1e3); }, million.seconds);
    add_pair(
        "the floor, per atom: 1e6 / 1e3 atoms", no_target(),
        [] { return floor_growth(coordinates_text(1000000), 1e6, coordinates_text(1000), 1e3); }, million.seconds);
    add_entry_rows(thousand);
    add_entry_rows(hundred_thousand);
    add_pair(
        "parse, per entry: 1e5 / 1e3 entries", at_most(1.0),
        [] { return growth(entries_text(100000), 1e5, entries_text(1000), 1e3); }, hundred_thousand.seconds);
    add_pair(
        "the floor, per entry: 1e5 / 1e3 entries", no_target(),
        [] { return floor_growth(entries_text(100000), 1e5, entries_text(1000), 1e3); }, hundred_thousand.seconds);
}

const RowGroup group(Place::parse, add_rows);

}  // namespace
}  // namespace velk::bench
