// A text as a table of lines.
#include "in_place/line_table.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp {

LineTable::LineTable(std::string_view text) : text_(text) {
    constexpr std::size_t usual_line = 32;
    lines_.reserve(text.size() / usual_line);
    bool in_section = false;
    std::string_view rest = text;
    for (std::string_view raw; core::text::take_line(rest, raw);) {
        const std::size_t index = lines_.size();
        lines_.push_back({static_cast<std::size_t>(raw.data() - text.data()), raw.size()});
        if (!in_section) {
            add_outer_line(core::text::trim_view(raw), in_section);
        } else if (ends_section(raw)) {
            sections_.back().stop = index;
            sections_.back().terminated = true;
            content_end_ = index + 1;
            in_section = false;
        }
    }
    if (in_section) {
        sections_.back().stop = lines_.size();
        content_end_ = lines_.size();
    }
}

void LineTable::add_outer_line(std::string_view text, bool& in_section) {
    const std::size_t index = lines_.size() - 1;
    const LineKind kind = classify(text);
    if (kind == LineKind::directive || kind == LineKind::method_line) {
        content_end_ = index + 1;
    }
    if (kind == LineKind::method_line && !first_method_line_) {
        first_method_line_ = index;
    }
    if (kind == LineKind::section_header && text.size() > 1) {  // trimmed, so there is a name
        sections_.push_back({index, index});
        in_section = true;
    }
}

std::string_view LineTable::line_end(std::size_t line) const {
    const std::size_t begin = lines_[line].begin + lines_[line].size;
    return text_.substr(begin, begin_of(line + 1) - begin);
}

const SectionLines& LineTable::section_at(std::size_t header) const {
    return *std::lower_bound(sections_.begin(), sections_.end(), header,
                             [](const SectionLines& section, std::size_t line) { return section.header < line; });
}

bool LineTable::is_blank(std::size_t line) const {
    return core::text::trim_view(raw(line)).empty();
}

bool LineTable::is_comment(std::size_t line) const {
    return classify(core::text::trim_view(raw(line))) == LineKind::comment;
}

std::size_t LineTable::above_remark(std::size_t line) const {
    while (line > 0 && is_comment(line - 1)) {
        --line;
    }
    return line;
}

std::size_t LineTable::before_trailing_notes() const {
    std::size_t line = content_end_ > 0 ? content_end_ : size();
    while (line < size() && is_blank(line)) {
        ++line;
    }
    return line;
}

}  // namespace velk::input::amesp
