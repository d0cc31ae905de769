// Charge and multiplicity in place.
#include "geometry_header.hpp"

#include <array>
#include <string>
#include <vector>

#include "edits.hpp"
#include "numbers.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

// What stands in the place of charge and multiplicity is replaced unless it reads the same; every other word stays.
std::vector<std::string> header_with(const std::array<std::int32_t, 2>& numbers, std::vector<std::string> words) {
    const auto is_number = [](const std::string& word) {
        return word.find_first_not_of("+-.0123456789") == std::string::npos;
    };
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i == words.size() || !is_number(words[i])) {
            words.insert(words.begin() + static_cast<std::ptrdiff_t>(i), std::to_string(numbers[i]));
        } else if (read_number<std::int32_t>(words[i]) != numbers[i]) {
            words[i] = std::to_string(numbers[i]);
        }
    }
    return words;
}

}  // namespace

void set_header(AIPEditor& editor, std::optional<std::int32_t> charge, std::optional<std::int32_t> multiplicity) {
    const Section* const old = editor.data().find_section("xyz");
    if (old == nullptr) {
        throw EditRefused("there is no >xyz section to take charge and multiplicity");
    }
    charge = charge ? charge : old->charge;
    multiplicity = multiplicity ? multiplicity : old->multiplicity;
    if (!charge || !multiplicity) {
        throw EditRefused(std::string("its >xyz section has no ") +
                          (charge ? "multiplicity: give --multiplicity" : "charge: give --charge") + " as well");
    }
    Section& section = editor.upsert_section("xyz", header_with({*charge, *multiplicity}, old->arguments));
    section.charge = charge;
    section.multiplicity = multiplicity;
}

}  // namespace amesp_inp
