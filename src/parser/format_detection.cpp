// Recognises AMESP input text without a schema.
#include <algorithm>
#include <array>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/parser.hpp>

#include "model/key.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

bool names_geometry(std::string_view section) {
    constexpr std::array<std::string_view, 6> names = {"xyz", "zmat", "zmatrix", "z-matrix", "coord", "coordinates"};
    return std::any_of(names.begin(), names.end(), [&](std::string_view name) { return same_key(section, name); });
}

}  // namespace

bool AIPParser::looks_like_amesp_input(std::string_view text) {
    bool method = false;
    bool geometry = false;
    LineCursor lines(text);
    for (Line line; lines.next(line);) {
        const LineKind kind = classify(line.text);
        if (kind != LineKind::method_line && kind != LineKind::section_header) {
            continue;
        }
        std::string_view rest = line.text.substr(1);
        const std::string_view word = core::text::take_word(rest);
        if (kind == LineKind::method_line) {
            method = !word.empty();  // the last method line decides
        } else {
            geometry = geometry || names_geometry(word);
        }
    }
    return method && geometry;
}

}  // namespace velk::input::amesp
