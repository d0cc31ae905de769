// Random schemas as YAML, sound and unsound ones.
#pragma once

#include <string>

#include "oracle/chance.hpp"

namespace velk::oracle {

std::string random_yaml(Chance& chance);

}  // namespace velk::oracle
