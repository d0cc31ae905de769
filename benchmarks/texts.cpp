#include "texts.hpp"

#include <array>
#include <charconv>
#include <cstdint>
#include <random>
#include <string_view>

namespace velk::bench {
namespace {

constexpr std::array<std::string_view, 25> subjects = {
    "energy", "density", "gradient", "orbital", "overlap", "exchange", "solvent", "radius", "charge",
    "spin",   "level",   "damping",  "mixing",  "history", "screen",   "batch",   "cache",  "memory",
    "field",  "dipole",  "hessian",  "trust",   "freeze",  "localize", "print"};
constexpr std::array<std::string_view, 10> aspects = {"max",  "min",   "tol",   "cycle", "shift",
                                                      "grid", "start", "limit", "scale", "mode"};
constexpr std::array<std::string_view, 4> elements = {"C", "H", "O", "Cl"};

enum class Kind { integer, real, boolean, word };

// The kinds of ten entries in a row.
constexpr std::array<Kind, 10> kinds = {Kind::integer, Kind::real,    Kind::integer, Kind::word, Kind::real,
                                        Kind::integer, Kind::boolean, Kind::integer, Kind::real, Kind::word};

constexpr std::size_t entry_names = subjects.size() * aspects.size();

std::string entry_name(std::size_t index) {
    const std::size_t name = index % entry_names;
    return std::string(subjects[name / aspects.size()]) + '_' + std::string(aspects[name % aspects.size()]);
}

std::string value_spec(Kind kind) {
    switch (kind) {
        case Kind::integer:
            return "value_type: integer, min: 1";
        case Kind::real:
            return "value_type: real, min: 0, max: 1000";
        case Kind::boolean:
            return "value_type: boolean";
        case Kind::word:
            break;
    }
    return "value_type: enum, allowed: [loose, normal, tight]";
}

std::string make_schema_text() {
    std::string text = "directives:\n";
    for (std::size_t i = 0; i < 20; ++i) {
        text += "  resource_" + std::to_string(i) + ": {value_type: integer, min: 1}\n";
    }
    text += "method_tokens:\n";
    for (std::size_t i = 0; i < 200; ++i) {
        const std::string number = std::to_string(i);
        const bool method = i % 2 == 0;
        text += (method ? "  functional-" : "  basis-") + number + ": {category: " + (method ? "method" : "basis");
        text += (i % 5 == 0 ? ", aliases: [f" + number + "]}\n" : "}\n");
    }
    text += "sections:\n  xyz: {parse_mode: cartesian_coordinates, allow_multiple: false}\n";
    for (std::size_t i = 0; i < 8; ++i) {
        text += "  task_" + std::to_string(i) + ":\n    parse_mode: key_value\n    entries:\n";
        for (std::size_t entry = 0; entry < (i < 4 ? 2U : 3U); ++entry) {
            text += "      " + entry_name(entry) + ": {" + value_spec(kinds[entry]) + "}\n";
        }
    }
    text += "  scf:\n    parse_mode: key_value\n    entries:\n";
    for (std::size_t i = 0; i < entry_names; ++i) {
        text += "      " + entry_name(i) + ": {" + value_spec(kinds[i % kinds.size()]);
        text += (i % 5 == 0 ? ", aliases: [option-" + std::to_string(i) + "]}\n" : "}\n");
    }
    return text;
}

void append_fixed(std::string& text, double value, int decimals) {
    std::array<char, 64> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    text.append(buffer.data(), end);
}

// Coordinates of a drop that grows with its atoms, as a user's program would print them.
class Atoms {
public:
    explicit Atoms(std::size_t count) : radius_(count < 1000 ? 10.0 : 100.0) {}

    void append_line(std::string& text) {
        text += "  ";
        text += elements[next_++ % elements.size()];
        for (int axis = 0; axis < 3; ++axis) {
            const double unit = static_cast<double>(random_()) / static_cast<double>(std::mt19937::max());
            text += ' ';
            append_fixed(text, (2.0 * unit - 1.0) * radius_, 10);
        }
        text += '\n';
    }

private:
    double radius_;
    std::size_t next_ = 0;
    std::mt19937 random_{1};
};

std::string make_value(Kind kind, std::mt19937& random) {
    const auto number = static_cast<std::uint32_t>(random());
    switch (kind) {
        case Kind::integer:
            return std::to_string(1 + number % 5000);
        case Kind::real: {
            std::string text;
            append_fixed(text, static_cast<double>(number % 1000000) * 1e-6, 6);
            return text;
        }
        case Kind::boolean:
            return number % 2 == 0 ? "true" : "false";
        case Kind::word:
            break;
    }
    constexpr std::array<std::string_view, 3> words = {"loose", "normal", "tight"};
    return std::string(words[number % words.size()]);
}

std::string make_small_text() {
    std::string text =
        "# a small molecule, single point\n% resource_0 4000\n% resource_1 8\n\n"
        "! functional-42 basis-17 functional-100\n\n>scf\n";
    for (const Pair& pair : pairs(8)) {
        text += "  " + pair.key + " = " + pair.value + '\n';
    }
    text += "end\n\n>xyz 0 1\n";
    Atoms atoms(15);
    for (int i = 0; i < 15; ++i) {
        atoms.append_line(text);
    }
    return text + "end\n";
}

}  // namespace

const std::string& schema_text() {
    static const std::string text = make_schema_text();
    return text;
}

const input::amesp::InputSchema& schema() {
    static const auto schema = input::amesp::InputSchema::from_yaml(schema_text());
    return schema;
}

std::string coordinates_text(std::size_t atoms) {
    std::string text = "! functional-42 basis-17\n\n>xyz 0 1\n";
    Atoms lines(atoms);
    for (std::size_t i = 0; i < atoms; ++i) {
        lines.append_line(text);
    }
    return text + "end\n";
}

std::vector<Pair> pairs(std::size_t count) {
    std::mt19937 random{2};
    std::vector<Pair> made;
    made.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Kind kind = kinds[i % kinds.size()];
        made.push_back({entry_name(i), make_value(kind, random), kind == Kind::word});
    }
    return made;
}

std::string entries_text(std::size_t count) {
    std::string text = "! functional-42 basis-17\n\n>scf\n";
    for (const Pair& pair : pairs(count)) {
        text += "  " + pair.key + " = " + pair.value + '\n';
    }
    return text + "end\n";
}

const std::string& small_text() {
    static const std::string text = make_small_text();
    return text;
}

}  // namespace velk::bench
