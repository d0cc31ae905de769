// The model's own text operations, spelled out byte by byte.
#pragma once

#include <string>
#include <vector>

namespace velk::oracle {

bool is_space(char byte);
std::string trim(const std::string& text);
std::string lower(std::string text);
// What names are compared by.
std::string key(const std::string& name);

// Without their line feeds, and without a carriage return right before one; a line feed at the very end starts no line.
std::vector<std::string> lines_of(const std::string& text);
std::vector<std::string> words_of(const std::string& text);
// What comes after the first blank or tab, trimmed.
std::string behind_first_blank(const std::string& text);

bool starts_with(const std::string& text, const std::string& start);
bool is_comment(const std::string& trimmed_line);

}  // namespace velk::oracle
