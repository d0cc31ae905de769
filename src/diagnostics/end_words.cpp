// Lines that were meant to be 'end'.
#include "diagnostics/end_words.hpp"

#include <cstddef>

#include <velk/core/text_view.hpp>

#include "diagnostics/slips.hpp"
#include "model/key.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

constexpr std::string_view end_word = "end";
constexpr std::string_view neodymium = "nd";

bool is_slip_of_end(std::string_view word) {
    constexpr std::size_t longest_slip = end_word.size() + 1;
    if (word.size() > longest_slip) {
        return false;
    }
    const Key key(word);
    return (is_one_slip(key.view(), end_word) && key.view() != neodymium) || key.view() == "end." ||
           key.view() == "end,";
}

bool is_remark(std::string_view text) {
    return classify(text) == LineKind::comment;
}

}  // namespace

EndLine split_end_line(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() && !core::text::is_space(text[end]) && !is_remark(text.substr(end))) {
        ++end;
    }
    return {text.substr(0, end), trim_view(text.substr(end))};
}

bool is_misspelt_end(std::string_view text, std::string_view section, const InputSchema& schema) {
    if (text.starts_with('>')) {
        return is_section_end(trim_view(text.substr(1))) && !schema.is_known_section(end_word);
    }
    const EndLine line = split_end_line(text);
    if (!is_section_end(line.word) && !is_slip_of_end(line.word)) {
        return false;
    }
    return (line.rest.empty() || is_remark(line.rest) || names_section(line.rest, section, schema)) &&
           !schema.is_known_entry(section, line.word);
}

bool names_section(std::string_view words, std::string_view section, const InputSchema& schema) {
    words = trim_view(words);
    words.remove_prefix(words.starts_with('>') ? 1 : 0);
    return schema.canonical_section(words) == schema.canonical_section(section);
}

}  // namespace velk::input::amesp
