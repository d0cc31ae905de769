// amesp-inp get.
#pragma once

#include <string>
#include <vector>

#include "inputs.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct GetOptions {
    InputOptions inputs;
    bool names = false;  // print file and key, too
    std::string format = "text";
    std::vector<std::string> keys;
    SchemaOptions schema;
};

// The exit status.
int run_get(const GetOptions& options);

}  // namespace amesp_inp
