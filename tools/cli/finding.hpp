// One thing to tell the user about a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <velk/input/amesp/validation.hpp>

namespace amesp_inp {

using velk::input::amesp::IssueSeverity;
using velk::input::amesp::SourceLocation;

// A further place that explains a finding.
struct Note {
    std::string message;
    SourceLocation location;
};

struct Finding {
    IssueSeverity severity = IssueSeverity::Warning;
    std::string code;
    std::string message;  // the library's own text
    SourceLocation location;
    std::vector<Note> notes;
    std::vector<std::string> helps;
    std::string suggestion = {};  // for an unknown name the one known name near to it, if there is just one
};

// A file with what was found in it, by place.
struct FileFindings {
    std::string name;
    std::string text;   // the file's content, for excerpts
    std::string error;  // why the file could not be read; empty if it was
    std::vector<Finding> findings;
};

}  // namespace amesp_inp
