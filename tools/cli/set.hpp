// amesp-inp set.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "edits.hpp"
#include "inputs.hpp"

namespace amesp_inp {

struct SetOptions {
    InputOptions inputs;
    EditOutput output;
    std::string schema_path;
    Edits edits;
};

// The exit status.
int run_set(const SetOptions& options);

}  // namespace amesp_inp
