// amesp-inp new.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "edits.hpp"

namespace amesp_inp {

struct NewOptions {
    std::string schema_path;
    Edits edits;
    EditOutput output;
};

// The exit status.
int run_new(const NewOptions& options);

}  // namespace amesp_inp
