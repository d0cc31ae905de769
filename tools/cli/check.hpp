// amesp-inp check.
#pragma once

#include <string>

#include "inputs.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct CheckOptions {
    InputOptions inputs;
    SchemaOptions schema;
    std::string format = "text";
    std::string fail_on = "error";
    std::string color = "auto";
    std::string fix;  // empty, "certain" or "all"
    bool diff = false;
    bool force = false;
    bool canonical = false;
    bool quiet = false;
    unsigned threads = 0;  // as many as there are processors
};

// The exit status.
int run_check(const CheckOptions& options);

}  // namespace amesp_inp
