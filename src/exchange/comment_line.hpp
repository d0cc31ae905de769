// What the comment line of an XYZ frame says of the molecule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velk::input::amesp {

struct CommentProblem {
    std::size_t offset = 0;  // in the line
    std::string message;
};

struct CommentLine {
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
    std::optional<CommentProblem> problem;  // where reading stopped
};

CommentLine read_comment_line(std::string_view line);

}  // namespace velk::input::amesp
