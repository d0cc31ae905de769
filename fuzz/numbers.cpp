// Each line of any text as a number, and each eight bytes as a double: read and written through the library, and by the
// C library under its classic locale.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/core/text.hpp>
#include <velk/input/amesp.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "law.hpp"
#include "oracle/plain_numbers.hpp"
#include "run.hpp"

namespace velk::fuzz {
namespace {

using namespace input::amesp;

const InputSchema& geometry_schema() {
    static const InputSchema schema = InputSchema::from_yaml("sections: {xyz: {parse_mode: xyz}}");
    return schema;
}

Section parsed_geometry(const std::string& header, const std::string& line) {
    const std::string text = ">xyz " + header + "\n" + line + "\nend\n";
    AIPData data = AIPParser::parse_string(text, geometry_schema(), {true, false}).data;
    require(data.sections.size() == 1, "a geometry is one section", text);
    return data.sections.front();
}

bool same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void check_coordinate(const std::string& word) {
    const std::optional<double> expected = oracle::read_real(word);
    const std::string text =
        "H " + word + " 0 0\nH 0 " + word + " 0\nH 0 0 " + word + "\nH " + word + " " + word + " " + word;
    const auto atoms = parsed_geometry("0 1", text).atoms;
    require(atoms.size() == (expected ? 4 : 0), "a coordinate is read when strtod reads it", word);
    if (expected) {
        for (const double read : {atoms[0].x, atoms[1].y, atoms[2].z, atoms[3].x, atoms[3].y, atoms[3].z}) {
            require(same(read, *expected), "a coordinate is what strtod reads", word);
        }
    }
}

void check_header(const std::string& word) {
    const Section section = parsed_geometry(word + " 1", "");
    require(section.charge == oracle::read_int32(word), "a charge is what strtol reads", word);
    require(parsed_geometry("0 " + word, "").multiplicity == section.charge, "a multiplicity is what strtol reads",
            word);
}

std::vector<std::string> codes_of_value(const std::string& type, const std::string& value, double min, double max) {
    const auto tables = std::make_shared<InputSchema::Impl>();
    ValueSpec spec;
    spec.name = "a";
    spec.value_type = type;
    spec.min = min;
    spec.max = max;
    tables->directives.emplace("a", spec);
    tables->sections.emplace("xyz", SectionSpec{"xyz", SectionParseMode::raw, false, true, {}, {}});
    AIPData data;
    data.directives.push_back({"a", value, true, {}});
    std::vector<std::string> codes;
    for (const ValidationIssue& issue : InputSchema(tables).validate(data)) {
        if (issue.code.find("value") != std::string::npos) {
            codes.push_back(issue.code);
        }
    }
    return codes;
}

// The bounds tell which number the value was read as.
void check_value(const std::string& type, const std::string& value, const std::optional<double>& expected) {
    using Codes = std::vector<std::string>;
    if (!expected) {
        require(codes_of_value(type, value, 0, 0) == Codes{"amesp.invalid_value"}, "no number, no value", value);
        return;
    }
    const double above = std::nextafter(*expected, HUGE_VAL);
    const double below = std::nextafter(*expected, -HUGE_VAL);
    require(codes_of_value(type, value, *expected, *expected).empty(), "a value is what the C library reads", value);
    require(codes_of_value(type, value, above, HUGE_VAL) == Codes{"amesp.value_below_minimum"}, "and not more", value);
    require(codes_of_value(type, value, -HUGE_VAL, below) == Codes{"amesp.value_above_maximum"}, "and not less", value);
}

void check_written(double value) {
    AIPEditor editor({}, geometry_schema());
    editor.set_xyz_geometry(0, 1, {{"H", value, -value, value, "", {}}});
    const std::string line = "\n  H " + oracle::with_ten_decimals(value) + " " + oracle::with_ten_decimals(-value) +
                             " " + oracle::with_ten_decimals(value) + "\nend\n";
    const std::string text = editor.render();
    require(text.size() >= line.size() && text.substr(text.size() - line.size()) == line,
            "coordinates are what printf prints", text + line);
}

void check_text(const std::string& text) {
    const std::optional<std::int64_t> integer = oracle::read_int64(text);
    check_value("integer", text, integer ? std::optional(static_cast<double>(*integer)) : std::nullopt);
    std::optional<double> real = oracle::read_real(text);
    if (real) {
        check_written(*real);
    }
    check_value("real", text, real && std::isfinite(*real) ? real : std::nullopt);
    if (const std::vector<std::string> words = core::text::split_whitespace(text); !words.empty()) {
        check_coordinate(words.front());
        check_header(words.front());
    }
}

// All the ways in which a double is commonly printed.
void check_double(double value) {
    check_written(value);
    for (const char* const format : {"%.17g", "%a", "%.10f", "%.16e", "%.6f", "%.3f", "%.19f"}) {
        char text[512];
        std::snprintf(text, sizeof text, format, value);
        check_coordinate(text);
        if (char* const exponent = std::strchr(text, 'e')) {
            *exponent = 'D';
            check_coordinate(text);
        }
    }
}

// A few of each: more would make an input slow, and say nothing new.
constexpr int at_most = 4;

void check(std::string_view bytes) {
    std::string_view rest = bytes;
    for (int i = 0; i < at_most && rest.size() >= sizeof(double); ++i) {
        double value = 0.0;
        std::memcpy(&value, rest.data(), sizeof value);
        check_double(value);
        rest.remove_prefix(sizeof value);
    }
    rest = bytes;
    for (int i = 0; i < 4 * at_most && !rest.empty(); ++i) {
        const std::size_t feed = std::min(rest.find('\n'), rest.size());
        check_text(std::string(rest.substr(0, feed)));
        rest.remove_prefix(std::min(feed + 1, rest.size()));
    }
}

}  // namespace

void run(const std::string& input) {
    check(input);
}

}  // namespace velk::fuzz
