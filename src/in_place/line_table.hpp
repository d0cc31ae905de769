// A text as a table of lines, and where its sections begin and end: what the parser sees, without making records.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace velk::input::amesp {

// Lines are counted from 0 here: the line of a location, less one.
struct SectionLines {
    std::size_t header = 0;
    std::size_t stop = 0;  // the "end" line, or the number of lines when there is none
    bool terminated = false;
};

// Views into the text, which must outlive the table.
class LineTable {
public:
    explicit LineTable(std::string_view text);

    std::string_view text() const noexcept { return text_; }
    std::size_t size() const noexcept { return lines_.size(); }
    std::string_view raw(std::size_t line) const { return text_.substr(lines_[line].begin, lines_[line].size); }
    std::string_view line_end(std::size_t line) const;
    // Where a line begins in the text; of the number of lines, where the text ends.
    std::size_t begin_of(std::size_t line) const { return line < size() ? lines_[line].begin : text_.size(); }

    const std::vector<SectionLines>& sections() const noexcept { return sections_; }
    // The section whose header is that line, which must be one.
    const SectionLines& section_at(std::size_t header) const;
    bool ends_in_open_section() const noexcept { return !sections_.empty() && !sections_.back().terminated; }
    std::optional<std::size_t> first_method_line() const noexcept { return first_method_line_; }

    bool is_blank(std::size_t line) const;
    bool is_comment(std::size_t line) const;
    // The line, or the first of the comments right above it, which belong to it.
    std::size_t above_remark(std::size_t line) const;
    // Where something may follow the last section, directive and method line: at the first of the notes after them, or
    // at the end. A text that holds none of them has no notes.
    std::size_t before_trailing_notes() const;

private:
    struct Extent {
        std::size_t begin = 0;
        std::size_t size = 0;  // without the line end
    };
    void add_outer_line(std::string_view text, bool& in_section);

    std::string_view text_;
    std::vector<Extent> lines_;
    std::vector<SectionLines> sections_;
    std::optional<std::size_t> first_method_line_;
    std::size_t content_end_ = 0;  // up to and with the last line that means something
};

}  // namespace velk::input::amesp
