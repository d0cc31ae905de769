// Trimming and splitting of text, with owned results. The views they copy from are in <velk/core/text_view.hpp>.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <velk/core/text_export.hpp>

namespace velk::core::text {

// `text` without white space (blank, tab, line feed, vertical tab, form feed, carriage return) at its ends.
VELK_CORE_TEXT_EXPORT std::string trim(std::string_view text);

// The lines of `text` without their line ends (LF or CR LF). Empty lines are kept; a line end at the end of the text
// starts no further line. Empty text has no lines.
VELK_CORE_TEXT_EXPORT std::vector<std::string> split_lines(std::string_view text);

// The words between runs of white space; blank text has none.
VELK_CORE_TEXT_EXPORT std::vector<std::string> split_whitespace(std::string_view text);

}  // namespace velk::core::text
