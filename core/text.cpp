// The owning forms of trimming and splitting.
#include <velk/core/text.hpp>

#include <velk/core/text_view.hpp>

namespace velk::core::text {

std::string trim(std::string_view text) {
    return std::string(trim_view(text));
}

std::vector<std::string> split_lines(std::string_view text) {
    std::vector<std::string> lines;
    std::string_view line;
    while (take_line(text, line)) {
        lines.emplace_back(line);
    }
    return lines;
}

std::vector<std::string> split_whitespace(std::string_view text) {
    std::vector<std::string> words;
    for (std::string_view word = take_word(text); !word.empty(); word = take_word(text)) {
        words.emplace_back(word);
    }
    return words;
}

}  // namespace velk::core::text
