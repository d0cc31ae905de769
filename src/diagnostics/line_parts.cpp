// What the parts of a line mean, by the kind of the line.
#include "diagnostics/line_parts.hpp"

#include <algorithm>
#include <string>
#include <string_view>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "diagnostics/odd_characters.hpp"
#include "model/geometry_names.hpp"
#include "model/numbers.hpp"
#include "parser/line.hpp"
#include "schema/queries.hpp"
#include "validation/values.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;
using Parts = std::vector<LinePart>;

constexpr std::size_t to_the_end = std::string_view::npos;

LinePart meant(std::size_t end) {
    return {end, Severity::error, Applicability::certain, 0, to_the_end};
}

// Of a name that the schema does not know in plain characters either, and of free text.
LinePart free_text(std::size_t end) {
    return {end, Severity::warning, Applicability::likely, 0, 0};
}

LinePart name_part(std::size_t end, bool is_known) {
    return is_known ? meant(end) : free_text(end);
}

// A value that is allowed in plain characters only is wrong because of the others.
LinePart value_part(const ValueSpec* spec, std::string_view value) {
    LinePart part = free_text(to_the_end);
    if (spec != nullptr) {
        const auto is_wrong = [spec](std::string_view text) {
            return !check_value(*spec, std::string(trim_view(text)), {{}, {}}, {}).empty();
        };
        if (is_wrong(value) && !is_wrong(with_plain_characters(value))) {
            part.severity = Severity::error;
            part.explains_to = to_the_end;
        }
    }
    return part;
}

std::size_t end_in(std::string_view line, std::string_view part) {
    return static_cast<std::size_t>(part.data() - line.data()) + part.size();
}

// The first word of a name in plain characters, up to a '='.
std::string plain_name(std::string_view name) {
    const std::string plain = with_plain_characters(name);
    std::string_view rest = std::string_view(plain).substr(0, plain.find('='));
    return std::string(take_word(rest));
}

Parts parts_of_directive(const InputSchema& schema, std::string_view line) {
    std::string_view rest = line.substr(line.find('%') + 1);
    const std::string_view name = take_word(rest);
    const std::string plain = plain_name(name);
    return {name_part(end_in(line, name), schema.is_known_directive(plain)),
            value_part(queries::find_directive(schema.tables(), plain), value_behind(rest))};
}

Parts parts_of_method_line(const InputSchema& schema, std::string_view line) {
    Parts parts;
    std::string_view rest = line.substr(line.find('!') + 1);
    for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
        bool is_known = false;
        const std::string plain = with_plain_characters(word);
        std::string_view plain_rest = plain;
        for (std::string_view token = take_word(plain_rest); !token.empty(); token = take_word(plain_rest)) {
            is_known = is_known || schema.is_known_method_token(token);
        }
        LinePart part = name_part(end_in(line, word), is_known);
        part.explains_from = part.end - word.size();
        part.explains_to = std::min(part.explains_to, part.end);
        parts.push_back(part);
    }
    return parts;
}

Parts parts_of_header(const InputSchema& schema, std::string_view line) {
    std::string_view rest = line.substr(line.find('>') + 1);
    const std::string_view name = take_word(rest);
    const std::string plain = plain_name(name);
    const bool is_geometry = is_geometry_section(schema.canonical_section(plain));
    return {name_part(end_in(line, name), schema.is_known_section(plain)),
            is_geometry ? meant(to_the_end) : free_text(to_the_end)};
}

Parts parts_of_atom(std::string_view line) {
    std::string_view rest = line;
    take_word(rest);
    std::string_view word;
    for (int i = 0; i < 3; ++i) {
        word = take_word(rest);
        if (!read_real(word)) {
            return {meant(to_the_end)};
        }
    }
    return {meant(end_in(line, word)), free_text(to_the_end)};
}

Parts parts_of_entry(const InputSchema& schema, const std::string& section, std::string_view line) {
    std::string_view rest = line;
    const std::size_t equals = line.find('=');
    std::string_view key = trim_view(line.substr(0, equals));
    std::string_view value = line.substr(equals == std::string_view::npos ? line.size() : equals + 1);
    if (equals == std::string_view::npos) {
        key = take_word(rest);
        value = value_behind(rest);
    }
    const std::string plain = plain_name(key);
    const SectionSpec* const spec = queries::find_section(schema.tables(), section);
    return {name_part(end_in(line, key), schema.is_known_entry(section, plain)),
            value_part(spec == nullptr ? nullptr : queries::find_entry(*spec, plain), value)};
}

Parts parts_in_section(const InputSchema& schema, const Section& section, std::string_view line) {
    switch (section.parse_mode) {
        case SectionParseMode::cartesian_coordinates:
            return parts_of_atom(line);
        case SectionParseMode::key_value:
            return parts_of_entry(schema, section.name, line);
        case SectionParseMode::raw:
            break;
    }
    return {is_geometry_section(section.name) ? meant(to_the_end) : free_text(to_the_end)};
}

}  // namespace

Parts parts_of_line(const DetectorInput& input, std::size_t line, const Section* section) {
    const std::string_view raw = input.lines.raw(line);
    const LineKind kind = classify(trim_view(raw));
    const std::string plain = with_plain_characters(raw);
    const LineKind plain_kind = classify(trim_view(plain));
    if (plain_kind == LineKind::blank) {
        return {{to_the_end, Severity::warning, Applicability::certain, 0, to_the_end}};
    }
    if (plain_kind != kind || (section != nullptr && is_section_end(trim_view(plain)))) {
        return {meant(to_the_end)};
    }
    if (section != nullptr) {
        return parts_in_section(input.schema.rules, *section, raw);
    }
    switch (kind) {
        case LineKind::directive:
            return parts_of_directive(input.schema.rules, raw);
        case LineKind::method_line:
            return parts_of_method_line(input.schema.rules, raw);
        case LineKind::section_header:
            return parts_of_header(input.schema.rules, raw);
        default:
            return {free_text(to_the_end)};
    }
}

}  // namespace velk::input::amesp
