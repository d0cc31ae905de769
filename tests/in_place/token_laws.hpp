// What must hold of edits of method tokens, over texts of method lines with a remark below each.
#pragma once

#include <cstddef>
#include <string>
#include <vector>
#include <velk/input/amesp/document.hpp>

namespace velk::test {

// The white space of a word in front of it tells the words of the text apart: it is two blanks for the first, three
// for the second and so on, while a new word follows one blank.
struct TokenPiece {
    std::size_t line = 0;
    std::size_t gap = 0;
    std::string word;

    bool operator==(const TokenPiece&) const = default;
};

inline constexpr std::size_t first_token_gap = 2;

std::string text_of_pieces(const std::vector<TokenPiece>& pieces);

// What is broken, in words; empty when nothing is. `result` is that text after edits that put tokens without location
// after all others: tokens with one keep their bytes, their line and their order, as many of the others as can be keep
// the bytes of old ones, and the rest is spelt and placed as new words are.
std::string broken_token_law(const std::vector<TokenPiece>& old, const input::amesp::AIPData& before,
                             const input::amesp::AIPData& after, const std::string& result);

}  // namespace velk::test
