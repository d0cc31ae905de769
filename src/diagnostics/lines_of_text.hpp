// Lines of the text and parts of them, as what findings point at. Lines are counted from 0.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "diagnostics/detected.hpp"
#include "diagnostics/places.hpp"

namespace velk::input::amesp {

// Of a part of that line.
inline TextRange range_in(const DetectorInput& input, std::size_t line, std::string_view part) {
    const auto column = static_cast<std::uint64_t>(part.data() - input.lines.raw(line).data()) + 1;
    return range_of(input.text, {line + 1, column, part.size()});
}

// With its line end.
inline Extent extent_of(const LineTable& lines, std::size_t line) {
    return {lines.begin_of(line), lines.begin_of(line + 1) - lines.begin_of(line)};
}

// An edit that puts `text` in the place of a part of the text of the lines.
inline TextEdit edit_of(const LineTable& lines, std::string_view part, std::string text) {
    return {static_cast<std::uint64_t>(part.data() - lines.text().data()), part.size(), std::move(text)};
}

// A finding in a line from which all others in that line follow.
inline Detected finding_in(const DetectorInput& input, std::size_t line, std::string_view part, Severity severity,
                           std::string_view code, std::string message) {
    Detected detected;
    detected.diagnostic.severity = severity;
    detected.diagnostic.code = code;
    detected.diagnostic.message = std::move(message);
    detected.diagnostic.range = range_in(input, line, part);
    detected.diagnostic.subject.kind = "line";
    detected.covers = {extent_of(input.lines, line)};
    return detected;
}

}  // namespace velk::input::amesp
