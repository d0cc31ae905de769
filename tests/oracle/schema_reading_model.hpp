// The model of the loader of schemas.
#pragma once

#include <string>

#include "oracle/comparison.hpp"

namespace velk::oracle {

// No tables for a text that makes a load fail, but what YAML's own error says.
struct SchemaReading {
    TablesHandle tables;
    std::string failure;
};

SchemaReading read_schema(const std::string& yaml);

}  // namespace velk::oracle
