// Collecting and reading the files to work on.
#include "inputs.hpp"

#include <fnmatch.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <unordered_set>
#include <velk/core/fs.hpp>

namespace amesp_inp {
namespace {

namespace stdfs = std::filesystem;

bool matches(const std::string& name, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string& pattern) { return ::fnmatch(pattern.c_str(), name.c_str(), 0) == 0; });
}

// Links to directories are not followed, so that a link to a parent is no trap. A directory that cannot be listed
// stands for itself: reading it fails with the reason, and everything beside it is still found.
void add_directory(const std::string& directory, const std::vector<std::string>& patterns, std::vector<Input>& inputs) {
    std::vector<std::string> found;
    std::vector<std::string> pending = {directory};
    while (!pending.empty()) {
        const std::string current = std::move(pending.back());
        pending.pop_back();
        std::error_code trouble;
        stdfs::directory_iterator entry(current, trouble);
        for (; !trouble && entry != stdfs::directory_iterator(); entry.increment(trouble)) {
            std::error_code unknown;
            if (entry->symlink_status(unknown).type() == stdfs::file_type::directory) {
                pending.push_back(entry->path().string());
            } else if (entry->is_regular_file(unknown) && matches(entry->path().filename().string(), patterns)) {
                found.push_back(entry->path().string());
            }
        }
        if (trouble) {
            found.push_back(current);
        }
    }
    std::sort(found.begin(), found.end());
    for (std::string& path : found) {
        inputs.push_back({path, path});
    }
}

// The path in its shortest spelling. What stands before a ".." may be a link, which only the system can follow.
std::string spelling_of(const std::string& path) {
    const stdfs::path parts(path);
    return std::find(parts.begin(), parts.end(), "..") == parts.end() ? parts.lexically_normal().string() : path;
}

// Leaves the first of those that name the same file: an edit is made once, however often its file is named.
void remove_repeated(std::vector<Input>& inputs) {
    std::unordered_set<std::string> seen;
    const auto is_repeated = [&](const Input& input) {
        return input.path != "-" && !seen.insert(spelling_of(input.path)).second;
    };
    inputs.erase(std::remove_if(inputs.begin(), inputs.end(), is_repeated), inputs.end());
}

// Not by the name /dev/stdin: a socket cannot be opened by it, and a file would be read from its start again.
std::string read_standard_input() {
    constexpr std::size_t step = std::size_t{1} << 16U;
    std::string text;
    for (;;) {
        const std::size_t size = text.size();
        text.resize(size + step);
        const ssize_t count = ::read(STDIN_FILENO, text.data() + size, step);
        text.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) {
            return text;
        }
        if (count < 0 && errno != EINTR) {
            throw std::runtime_error(std::generic_category().message(errno));
        }
    }
}

}  // namespace

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
    remove_repeated(inputs);
    return inputs;
}

std::string read_input(const Input& input) {
    try {
        return input.path == "-" ? read_standard_input() : velk::core::fs::read_text_file(input.path);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("cannot read '" + input.name + "': " + error.what());
    }
}

}  // namespace amesp_inp
