// Words that stand where a coordinate should, and what is wrong with them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

struct CoordinateWord {
    std::string fault;                                     // to follow the word in a sentence; empty for a number
    std::string numbers;                                   // to be written instead; empty where that cannot be told
    std::size_t count = 1;                                 // of these numbers
    Applicability applicability = Applicability::certain;  // of writing them
};

CoordinateWord read_coordinate(std::string_view word);

// Whether a number was probably meant, or one that was lost.
bool resembles_number(std::string_view word);

}  // namespace velk::input::amesp
