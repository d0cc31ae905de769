// amesp-inp show.
#pragma once

#include "inputs.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct ShowOptions {
    InputOptions inputs;
    SchemaOptions schema;
};

// The exit status.
int run_show(const ShowOptions& options);

}  // namespace amesp_inp
