// The symbols of the elements.
#include "diagnostics/elements.hpp"

#include <algorithm>
#include <array>

#include "model/key.hpp"

namespace velk::input::amesp {
namespace {

constexpr auto symbols = std::to_array<std::string_view>(
    {"h",  "he", "li", "be", "b",  "c",  "n",  "o",  "f",  "ne", "na", "mg", "al", "si", "p",  "s",  "cl", "ar",
     "k",  "ca", "sc", "ti", "v",  "cr", "mn", "fe", "co", "ni", "cu", "zn", "ga", "ge", "as", "se", "br", "kr",
     "rb", "sr", "y",  "zr", "nb", "mo", "tc", "ru", "rh", "pd", "ag", "cd", "in", "sn", "sb", "te", "i",  "xe",
     "cs", "ba", "la", "ce", "pr", "nd", "pm", "sm", "eu", "gd", "tb", "dy", "ho", "er", "tm", "yb", "lu", "hf",
     "ta", "w",  "re", "os", "ir", "pt", "au", "hg", "tl", "pb", "bi", "po", "at", "rn", "fr", "ra", "ac", "th",
     "pa", "u",  "np", "pu", "am", "cm", "bk", "cf", "es", "fm", "md", "no", "lr", "rf", "db", "sg", "bh", "hs",
     "mt", "ds", "rg", "cn", "nh", "fl", "mc", "lv", "ts", "og", "d",  "t",  "x",  "xx", "bq", "gh", "du"});

constexpr bool is_letter(char c) {
    return to_lower(c) >= 'a' && to_lower(c) <= 'z';
}

}  // namespace

std::string_view leading_letters(std::string_view text) {
    return text.substr(0,
                       static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), is_letter) - text.begin()));
}

bool begins_with_symbol(std::string_view label) {
    const std::string_view letters = leading_letters(label);
    return std::any_of(symbols.begin(), symbols.end(), [&](std::string_view symbol) {
        return std::equal(letters.begin(), letters.end(), symbol.begin(), symbol.end(),
                          [](char a, char b) { return to_lower(a) == b; });
    });
}

}  // namespace velk::input::amesp
