// Collecting and reading the files to work on.
#include "inputs.hpp"

#include <fnmatch.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <velk/core/fs.hpp>

namespace amesp_inp {
namespace {

namespace stdfs = std::filesystem;

bool matches(const std::string& name, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string& pattern) { return ::fnmatch(pattern.c_str(), name.c_str(), 0) == 0; });
}

// Links to directories are not followed, so that a link to a parent is no trap.
void add_directory(const std::string& directory, const std::vector<std::string>& patterns, std::vector<Input>& inputs) {
    std::vector<std::string> found;
    for (const stdfs::directory_entry& entry : stdfs::recursive_directory_iterator(directory)) {
        if (entry.is_regular_file() && matches(entry.path().filename().string(), patterns)) {
            found.push_back(entry.path().string());
        }
    }
    std::sort(found.begin(), found.end());
    for (std::string& path : found) {
        inputs.push_back({path, path});
    }
}

}  // namespace

void add_input_options(CLI::App& subcommand, InputOptions& options) {
    subcommand.add_option("FILE", options.paths, "Input files or directories; - is standard input")->required();
    subcommand.add_option("--pattern", options.patterns, "Files to take from directories (default: *.inp *.aip)")
        ->type_name("GLOB")
        ->expected(1)
        ->take_all();
    subcommand.add_option("--stdin-filename", options.stdin_name, "What messages call standard input")
        ->type_name("NAME");
}

std::vector<Input> collect_inputs(const InputOptions& options) {
    std::vector<Input> inputs;
    for (const std::string& path : options.paths) {
        std::error_code no_directory;
        if (path == "-") {
            inputs.push_back({path, options.stdin_name});
        } else if (stdfs::is_directory(path, no_directory)) {
            add_directory(path, options.patterns, inputs);
        } else {
            inputs.push_back({path, path});
        }
    }
    return inputs;
}

std::string read_input(const Input& input) {
    try {
        return velk::core::fs::read_text_file(input.path == "-" ? "/dev/stdin" : input.path);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("cannot read '" + input.name + "': " + error.what());
    }
}

}  // namespace amesp_inp
