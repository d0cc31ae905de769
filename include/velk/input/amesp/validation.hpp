// What validation reports.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <velk/input/amesp/document.hpp>

namespace velk::input::amesp {

enum class IssueSeverity : std::int32_t { Warning = 0, Error = 1 };

// One breach of the schema's rules. Names that the schema does not know are warnings; everything else is an error.
struct ValidationIssue {
    IssueSeverity severity = IssueSeverity::Warning;
    std::string code;  // stable, such as "amesp.unknown_section"
    std::string message;
    std::optional<SourceLocation> location;  // of the record concerned; absent for the document as a whole

    bool operator==(const ValidationIssue&) const = default;
};

}  // namespace velk::input::amesp
