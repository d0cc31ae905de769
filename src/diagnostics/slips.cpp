// Slips of the hand.
#include "diagnostics/slips.hpp"

#include <algorithm>
#include <cstddef>

namespace velk::input::amesp {
namespace {

bool is_letter(char c) {
    return c >= 'a' && c <= 'z';
}

// Up to the first difference both are alike; what comes after it must be, too.
bool is_one_letter_short(std::string_view typed, std::string_view known, std::size_t at) {
    return is_letter(known[at]) && typed.substr(at) == known.substr(at + 1);
}

bool is_doubled(std::string_view typed, std::string_view known, std::size_t at) {
    return at > 0 && is_letter(typed[at]) && typed[at] == typed[at - 1] && typed.substr(at + 1) == known.substr(at);
}

bool is_wrong_or_transposed(std::string_view typed, std::string_view known, std::size_t at) {
    if (!is_letter(typed[at]) || !is_letter(known[at])) {
        return false;
    }
    if (typed.substr(at + 1) == known.substr(at + 1)) {
        return true;
    }
    return at + 1 < typed.size() && is_letter(known[at + 1]) && typed[at] == known[at + 1] &&
           typed[at + 1] == known[at] && typed.substr(at + 2) == known.substr(at + 2);
}

}  // namespace

bool is_one_slip(std::string_view typed, std::string_view known) {
    const auto differ = std::mismatch(typed.begin(), typed.end(), known.begin(), known.end());
    const auto at = static_cast<std::size_t>(differ.first - typed.begin());
    if (typed.size() + 1 == known.size()) {
        return is_one_letter_short(typed, known, at);
    }
    if (typed.size() == known.size() + 1) {
        return is_doubled(typed, known, at);
    }
    return typed.size() == known.size() && at < typed.size() && is_wrong_or_transposed(typed, known, at);
}

}  // namespace velk::input::amesp
