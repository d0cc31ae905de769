// Line ends for new lines.
#include "diagnostics/line_ends.hpp"

#include <velk/core/text_view.hpp>

namespace velk::input::amesp {

std::string_view line_end_like(const LineTable& lines, std::size_t line) {
    if (const std::string_view end = lines.line_end(line); !end.empty()) {
        return end;
    }
    if (lines.raw(line).ends_with('\r')) {
        return "\r\n";
    }
    return line > 0 ? lines.line_end(line - 1) : "\n";
}

std::string_view indentation(std::string_view raw) {
    const std::string_view text = core::text::trim_view(raw);
    return raw.substr(0, static_cast<std::size_t>(text.data() - raw.data()));
}

}  // namespace velk::input::amesp
