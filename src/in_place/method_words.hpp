// The words of a method line, and what becomes of each.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp::in_place {

// What stands in the place of one word.
struct WordChange {
    std::vector<std::string> before;  // words that are new before it
    std::vector<std::string> after;   // and after it
    bool kept = true;
    std::string text;  // instead of the word, when not empty
};

// Views into the line, with the offsets that the words really have: a location does not tell when a word begins with
// the marker itself.
struct MethodWords {
    std::string_view raw;
    std::vector<std::string_view> words;
    std::vector<WordChange> changes;  // one for each word
    bool capitals = false;            // some word holds one
};

MethodWords method_words(std::string_view raw);

// The first word that begins with '#' and stays as it is: to a reader a remark begins there. Empty when there is none.
std::string_view remark_left(const MethodWords& line);

// The line with its changes; empty when no word is left.
std::string changed(const MethodWords& line);

}  // namespace velk::input::amesp::in_place
