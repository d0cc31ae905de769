// Random words of which names, values and lines are made, few enough that schemas and documents meet in them.
#pragma once

#include <string>

#include "oracle/chance.hpp"

namespace velk::oracle {

// Normalised, as the tables of a schema hold them.
std::string random_name(Chance& chance);
// A name as someone may write it; holds no white space.
std::string random_spelling(Chance& chance);
// Near every edge of the integer and real readers.
std::string random_number(Chance& chance);
// Anything that may follow a name.
std::string random_value(Chance& chance);
// White space of any kind but line feeds, at least one byte.
std::string random_gap(Chance& chance);
// Often nothing.
std::string random_indent(Chance& chance);

}  // namespace velk::oracle
