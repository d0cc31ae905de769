// What `check` does with one file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <velk/input/amesp/diagnostics.hpp>

#include "inputs.hpp"

namespace amesp_inp {

struct FileCheck {
    std::optional<velk::input::amesp::Applicability> fixes;  // to be made before the file is checked
    bool diff = false;                                       // show the fixes and leave the file as it is
    bool force = false;                                      // write over a guarded file
    bool canonical = false;                                  // write a fixed file in canonical form
    bool json = false;
    bool color = false;
};

// What one file adds to the output.
struct FileReport {
    std::string findings;
    std::string diff;
    std::string warning;  // of a file that was written
    std::string trouble;  // why the file could not be read or written; empty if it could
    bool unreadable = false;
    bool failed = false;  // in reading or writing, and not because of what the file holds
    bool fixed = false;
    bool skipped = false;  // nothing was done
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

// Fixes the file as wanted, and finds what is left. Throws nothing: what went wrong is in the report.
FileReport check_file(const Input& input, const velk::input::amesp::SchemaSource& schema, const FileCheck& check);

}  // namespace amesp_inp
