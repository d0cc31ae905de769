// amesp-inp fmt.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "inputs.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct FmtOptions {
    InputOptions inputs;
    EditOutput output;
    SchemaOptions schema;
    bool check = false;
};

// The exit status.
int run_fmt(const FmtOptions& options);

}  // namespace amesp_inp
