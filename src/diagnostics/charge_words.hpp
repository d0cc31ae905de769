// Charge and multiplicity as people write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velk::input::amesp {

struct ChargeWords {
    std::int32_t charge = 0;
    std::int32_t multiplicity = 1;
    std::string_view text;   // both, as written
    std::string_view wrong;  // the first word of it that is no integer in its place
};

// At the beginning of `words`: numbers with the sign after them, with typographic signs, parted by commas, named by
// words such as "mult", or words such as "singlet". Nothing where they cannot be told for sure.
std::optional<ChargeWords> read_charge_words(std::string_view words);

}  // namespace velk::input::amesp
