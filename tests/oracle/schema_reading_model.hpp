// The model of the loader of schemas.
#pragma once

#include <string>

#include "oracle/comparison.hpp"

namespace velk::oracle {

// Null for a text that makes a load fail.
TablesHandle read_schema(const std::string& yaml);

}  // namespace velk::oracle
