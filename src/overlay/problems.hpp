// What cannot be laid over a text: the codes and the wording.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp::overlay {

class Problems {
public:
    // No line of the format reads back as this record; `what` names it.
    void cannot_write(std::string_view what, const std::optional<SourceLocation>& location);
    // `what` does not agree with the text: it was read from another one, moved, or changed in a way that no editing
    // operation offers.
    void not_of_this_text(std::string_view what, const std::optional<SourceLocation>& location);

    std::vector<ValidationIssue> take() { return std::move(issues_); }

private:
    std::vector<ValidationIssue> issues_;
};

}  // namespace velk::input::amesp::overlay
