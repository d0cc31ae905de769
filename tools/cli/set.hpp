// amesp-inp set.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "edits.hpp"
#include "inputs.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct SetOptions {
    InputOptions inputs;
    EditOutput output;
    SchemaOptions schema;
    Edits edits;
};

// The exit status.
int run_set(const SetOptions& options);

}  // namespace amesp_inp
