// Every code that a finding can carry, and what to tell a user about it.
#pragma once

#include <span>
#include <string_view>

namespace amesp_inp {

struct CodeInfo {
    std::string_view code;
    std::string_view severity;  // "error" or "warning"
    std::string_view meaning;
    std::string_view bad;     // an input, or a command, that gives the finding; empty when none can
    std::string_view good;    // the same, mended
    std::string_view mend;    // how
    std::string_view schema;  // added to the starter schema by the examples, as YAML; usually empty
};

// In alphabetical order.
std::span<const CodeInfo> all_codes();

}  // namespace amesp_inp
