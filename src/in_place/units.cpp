// Words that name a unit of length.
#include "in_place/units.hpp"

#include <algorithm>
#include <array>

#include "model/key.hpp"

namespace velk::input::amesp::in_place {
namespace {

constexpr std::array<std::string_view, 18> other_units = {
    "a.u",       "a.u.",       "a0", "atomic",    "au",         "bohr",      "bohrs",      "nanometer", "nanometers",
    "nanometre", "nanometres", "nm", "picometer", "picometers", "picometre", "picometres", "pm",        "bohr_radius"};

}  // namespace

bool names_other_unit(std::string_view word) {
    constexpr std::string_view brackets = "()[]{},;'\"";
    word.remove_prefix(word.find_last_of("=:") + 1);  // npos + 1 is 0
    word.remove_prefix(std::min(word.find_first_not_of(brackets), word.size()));
    word.remove_suffix(word.size() - (word.find_last_not_of(brackets) + 1));
    return std::any_of(other_units.begin(), other_units.end(), [&](std::string_view unit) {
        return std::equal(word.begin(), word.end(), unit.begin(), unit.end(),
                          [](char a, char b) { return to_lower(a) == b; });
    });
}

}  // namespace velk::input::amesp::in_place
