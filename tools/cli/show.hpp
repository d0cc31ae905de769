// amesp-inp show.
#pragma once

#include <string>

#include "schema_source.hpp"

namespace amesp_inp {

struct ShowOptions {
    std::string path;
    SchemaOptions schema;
};

// The exit status.
int run_show(const ShowOptions& options);

}  // namespace amesp_inp
