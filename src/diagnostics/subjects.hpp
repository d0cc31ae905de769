// What diagnostics speak of.
#pragma once

#include <string_view>

#include <velk/input/amesp/diagnostics.hpp>

#include "validation/document_check.hpp"

namespace velk::input::amesp {

namespace subjects {

inline constexpr std::string_view document = "document";
inline constexpr std::string_view directive = "directive";
inline constexpr std::string_view token = "token";
inline constexpr std::string_view section = "section";
inline constexpr std::string_view entry = "entry";
inline constexpr std::string_view line = "line";

}  // namespace subjects

Subject subject_of(const IssueRecords& records);

}  // namespace velk::input::amesp
