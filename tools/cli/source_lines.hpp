// The lines of a file's text by number, for places and excerpts.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>
#include <velk/core/text_view.hpp>

#include <velk/input/amesp/document.hpp>

namespace amesp_inp {

using velk::input::amesp::SourceLocation;

// Views into a text that must outlive them.
class SourceLines {
public:
    explicit SourceLines(std::string_view text) {
        for (std::string_view line; velk::core::text::take_line(text, line);) {
            lines_.push_back(line);
        }
    }

    std::uint64_t count() const { return lines_.size(); }

    // Line `number`, from 1; empty when there is none.
    std::string_view line(std::uint64_t number) const {
        return number >= 1 && number <= lines_.size() ? lines_[number - 1] : std::string_view();
    }

    // Where the text of a line stands, without the white space around it.
    SourceLocation text_of(std::uint64_t number) const {
        const std::string_view raw = line(number);
        const std::string_view text = velk::core::text::trim_view(raw);
        const std::uint64_t column = text.empty() ? 1 : static_cast<std::uint64_t>(text.data() - raw.data()) + 1;
        return {number, column, text.size()};
    }

private:
    std::vector<std::string_view> lines_;
};

}  // namespace amesp_inp
