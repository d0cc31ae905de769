// amesp-inp get.
#pragma once

#include <string>
#include <vector>

#include "schema_source.hpp"

namespace amesp_inp {

struct GetOptions {
    std::string path;
    std::vector<std::string> keys;
    SchemaOptions schema;
};

// The exit status.
int run_get(const GetOptions& options);

}  // namespace amesp_inp
