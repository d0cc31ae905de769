// Edits of a text, as places of its bytes and what shall stand there.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// `length` bytes from `offset` on give way to `text`. Offsets are of the original text, whatever else is edited.
struct TextEdit {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    std::string text;

    bool operator==(const TextEdit&) const = default;
};

// `original` with all edits made. They must be sorted by offset, must not overlap and must lie in the text, else
// std::invalid_argument is thrown; edits at one offset are made in the order of the list. Takes time in proportion to
// the text and the edits, and memory for the result alone.
VELK_AMESP_INP_EXPORT std::string apply(std::string_view original, const std::vector<TextEdit>& edits);

// The same function, so that a call with these arguments and no namespace before it does not find std::apply.
template <class Text, class Edits>
requires std::convertible_to<Text, std::string_view> && std::same_as<std::remove_cvref_t<Edits>, std::vector<TextEdit>>
    std::string apply(Text&& original, Edits&& edits) {
    const std::vector<TextEdit>& list = edits;
    return apply(std::string_view(original), list);
}

}  // namespace velk::input::amesp
