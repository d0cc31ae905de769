// Lines that were meant to be 'end'.
#pragma once

#include <string_view>

#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

// A trimmed line as a word and what follows it; the word is never parted by a remark's mark.
struct EndLine {
    std::string_view word;
    std::string_view rest;  // trimmed
};

EndLine split_end_line(std::string_view text);

// Whether a trimmed line that ends no section was meant to end that one: the word but for a slip, or with a remark or
// the section's name after it. Not where the section may hold the word.
bool is_misspelt_end(std::string_view text, std::string_view section, const InputSchema& schema);

bool names_section(std::string_view words, std::string_view section, const InputSchema& schema);

}  // namespace velk::input::amesp
