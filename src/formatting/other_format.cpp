// Texts that are no AMESP input.
#include <velk/input/amesp/formatting.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp {

bool is_other_format(std::string_view text) {
    bool has_others = false;
    LineCursor lines(text);
    for (Line line; lines.next(line);) {
        const LineKind kind = classify(line.text);
        if (is_marked(kind)) {
            return false;
        }
        has_others = has_others || kind == LineKind::other;
    }
    return has_others;
}

}  // namespace velk::input::amesp
