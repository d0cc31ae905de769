// Every warning of the parser: its code and its wording.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/document.hpp>

namespace velk::input::amesp::warnings {

inline ParseWarning at_line(std::uint64_t line, std::string_view code, std::string message) {
    return {std::string(code), std::move(message), SourceLocation{line, 1, 0}};
}

inline ParseWarning empty_directive(std::uint64_t line) {
    return at_line(line, codes::empty_directive, "Ignored an empty '%' directive.");
}

inline ParseWarning empty_method_line(std::uint64_t line) {
    return at_line(line, codes::empty_method_line, "The AMESP method line contains no tokens.");
}

inline ParseWarning multiple_method_lines(std::uint64_t line) {
    return at_line(line, codes::multiple_method_lines, "Multiple AMESP method lines were merged in input order.");
}

inline ParseWarning empty_section_header(std::uint64_t line) {
    return at_line(line, codes::empty_section_header, "Ignored an empty '>' section header.");
}

inline ParseWarning invalid_xyz_record(std::uint64_t line) {
    return at_line(line, codes::invalid_xyz_record,
                   "Could not parse Cartesian coordinate record; the raw line was preserved.");
}

inline ParseWarning invalid_section_entry(std::uint64_t line) {
    return at_line(line, codes::invalid_section_entry, "Could not parse section entry; the raw line was preserved.");
}

inline ParseWarning unterminated_section(std::uint64_t header_line, const std::string& name) {
    return at_line(header_line, codes::unterminated_section,
                   "Section '>" + name + "' reached end-of-file without 'end'.");
}

// Says "Preserved" also where the line is dropped: callers know this text.
inline ParseWarning loose_line(std::uint64_t line) {
    return at_line(line, codes::loose_line, "Preserved a line outside any AMESP directive, method line, or section.");
}

}  // namespace velk::input::amesp::warnings
