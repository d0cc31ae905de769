// amesp-inp get.
#pragma once

#include <string>
#include <vector>

namespace amesp_inp {

struct GetOptions {
    std::string path;
    std::vector<std::string> keys;
    std::string schema_path;
};

// The exit status.
int run_get(const GetOptions& options);

}  // namespace amesp_inp
