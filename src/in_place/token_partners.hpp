// Finds the method tokens of an edited document again among those of the text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <velk/input/amesp/document.hpp>

namespace velk::input::amesp::in_place {

struct KeyedTokens {
    const std::vector<MethodToken>& tokens;
    std::vector<std::string> keys;  // of each token the name that the schema gives it
};

// For every token of `after` the one of `before`, read from the text, that it goes on with, or `no_partner`; ascending.
// A token with a location goes on with the one that stood there. Tokens without location between two such are paired
// with those of the same key that no location claims. A list without any location was set anew: what is then left
// between two pairs is paired by position. Nothing when a location is none of `before`'s or the order is another.
// Time is that of sorting the tokens that differ.
std::optional<std::vector<std::size_t>> token_partners(const KeyedTokens& before, const KeyedTokens& after);

}  // namespace velk::input::amesp::in_place
