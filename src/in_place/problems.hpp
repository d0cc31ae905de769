// What cannot be written into a text, and what goes unasked: the codes and the wording.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp::in_place {

class Problems {
public:
    // No line of the format reads back as this record; `what` names it.
    void cannot_write(std::string_view what, const std::optional<SourceLocation>& location);
    // `what` does not agree with the text: it was read from another one, moved, or changed in a way that no editing
    // operation offers.
    void not_of_this_text(std::string_view what, const std::optional<SourceLocation>& location);

    // A method-line token, new, would stand among words of a remark in its line; `remark` is where that begins.
    void remark_in_method_line(std::string_view token, const SourceLocation& remark);

    // Bytes of the text that an edit takes along although it does not name them; `what` says what goes, "The words 'x'
    // of ... go".
    void dropped_words(std::string_view what, const std::optional<SourceLocation>& location);
    // A header of a new geometry keeps the name of another unit than angstrom.
    void kept_unit(const Section& section, std::string_view word);

    std::vector<ValidationIssue> take() { return std::move(issues_); }

private:
    std::vector<ValidationIssue> issues_;
};

}  // namespace velk::input::amesp::in_place
