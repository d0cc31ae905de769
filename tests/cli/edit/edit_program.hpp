// Runs an editing subcommand with the schema of the tree.
#pragma once

#include "support/run_program.hpp"

namespace velk::test {

inline ProgramRun run_edit(std::vector<std::string> arguments, RunOptions options = {}) {
    options.environment.emplace_back("VELK_AMESP_INP_SCHEMA_YAML=" VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml");
    return run_program(arguments, options);
}

// In canonical form and valid.
constexpr auto water =
    "% maxcore 2000\n\n! hf sto-3g\n\n>scf\n  maxcyc 50\nend\n\n>xyz 0 1\n"
    "  O 0.0000000000 0.0000000000 0.1173000000\n"
    "  H 0.0000000000 0.7572000000 -0.4692000000\n"
    "  H 0.0000000000 -0.7572000000 -0.4692000000\nend\n";

}  // namespace velk::test
