// amesp-inp new.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "edits.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct NewOptions {
    SchemaOptions schema;
    Edits edits;
    EditOutput output;
};

// The exit status.
int run_new(const NewOptions& options);

}  // namespace amesp_inp
