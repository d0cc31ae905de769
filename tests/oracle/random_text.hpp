// Random input texts, with a liking for the edges of the format.
#pragma once

#include <string>

#include "oracle/chance.hpp"

namespace velk::oracle {

std::string random_text(Chance& chance);

}  // namespace velk::oracle
