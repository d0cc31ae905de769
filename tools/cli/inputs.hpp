// The files that a subcommand works on.
#pragma once

#include <string>
#include <vector>

namespace amesp_inp {

// What the command line says of them.
struct InputOptions {
    std::vector<std::string> paths;  // "-" is standard input
    std::string list_path;           // of a file that names more of them; "-" is standard input
    std::vector<std::string> patterns = {"*.inp", "*.aip"};
    std::vector<std::string> excluded;  // patterns as well
    std::string stdin_name = "<stdin>";
    bool may_be_empty = false;  // a directory without a file to work on

    // What stands right before a path and could go on with it, as where quotes were forgotten.
    struct Before {
        std::string option;
        std::string value;  // empty: the option takes the path after a '='
    };
    std::vector<Before> before;  // of each path; an option without a name where there is none
};

struct Input {
    std::string path;  // "-" is standard input
    std::string name;  // for messages
};

// The files to work on, in the order given, those of the list last; a file that is named again is left out. A directory
// stands for the files below it that match a pattern and are not excluded, in byte order of their paths; hidden
// folders below it are passed over. A path that is no directory is taken as a file and may turn out to be unreadable.
// Throws std::runtime_error when the list cannot be read, and for a directory or a list without a file.
std::vector<Input> collect_inputs(const InputOptions& options);

// Whether they are one file that was named itself, alone: not what a directory or a list happens to hold.
bool is_one_file(const InputOptions& options, const std::vector<Input>& inputs);

// Says of each input that cannot be read why, and what may have been meant by a word that names no file. To be asked
// before the first of several inputs is written.
bool can_all_be_read(const InputOptions& options, const std::vector<Input>& inputs);

// All bytes. Throws std::runtime_error, "cannot read 'NAME': REASON".
std::string read_input(const Input& input);

}  // namespace amesp_inp
