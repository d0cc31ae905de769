// amesp-inp explain.
#pragma once

#include <string>

namespace amesp_inp {

struct ExplainOptions {
    std::string code;  // empty: list all
};

// The exit status.
int run_explain(const ExplainOptions& options);

}  // namespace amesp_inp
