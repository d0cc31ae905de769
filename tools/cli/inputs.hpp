// The files that a subcommand works on.
#pragma once

#include <string>
#include <vector>

namespace amesp_inp {

// What the command line says of them.
struct InputOptions {
    std::vector<std::string> paths;  // "-" is standard input
    std::vector<std::string> patterns = {"*.inp", "*.aip"};
    std::string stdin_name = "<stdin>";
};

struct Input {
    std::string path;  // "-" is standard input
    std::string name;  // for messages
};

// The files to work on, in the order given; a directory stands for the files below it that match a pattern, in byte
// order of their paths; a file that is named again is left out. A path that is no directory is taken as a file and may
// turn out to be unreadable. Throws std::runtime_error when a directory cannot be walked.
std::vector<Input> collect_inputs(const InputOptions& options);

// All bytes. Throws std::runtime_error, "cannot read 'NAME': REASON".
std::string read_input(const Input& input);

}  // namespace amesp_inp
