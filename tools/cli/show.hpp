// amesp-inp show.
#pragma once

#include <string>

namespace amesp_inp {

struct ShowOptions {
    std::string path;
    std::string schema_path;
};

// The exit status.
int run_show(const ShowOptions& options);

}  // namespace amesp_inp
