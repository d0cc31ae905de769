// What is wrong with a line that is no atom.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

// Of a word, and what shall stand there.
struct WordChange {
    std::string_view word;
    std::string text;
};

struct AtomFault {
    std::string_view place;  // a word of the line, or all of it
    std::string message;
    std::vector<WordChange> changes;  // that make the line an atom; none where these cannot be told
    std::string numbers;              // the coordinates of that atom
    Applicability applicability = Applicability::certain;
};

// Whether a line that could not be read as an atom was probably meant to be one.
bool resembles_atom(std::string_view line);

// Of such a line, without white space around it.
AtomFault find_atom_fault(std::string_view line);

}  // namespace velk::input::amesp
