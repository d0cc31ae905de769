// Which lines of a text an edit has no business with, found out from the records alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/document.hpp>

namespace velk::test {

// The lines of a text with their line ends.
std::vector<std::string> whole_lines(std::string_view text);

// For each line of `text` whether it holds nothing that differs between the document read from it and the edited one.
std::vector<bool> untouched_lines(std::string_view text, const input::amesp::AIPData& before,
                                  const input::amesp::AIPData& after);

}  // namespace velk::test
