// Collecting and reading the files to work on.
#include "inputs.hpp"

#include <fcntl.h>
#include <fnmatch.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>
#include <unordered_set>
#include <velk/core/fs.hpp>

#include "exhausted_memory.hpp"
#include "output.hpp"

namespace amesp_inp {
namespace {

namespace stdfs = std::filesystem;

bool matches(const std::string& text, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
        return ::fnmatch(pattern.c_str(), text.c_str(), FNM_CASEFOLD) == 0;
    });
}

bool is_hidden(const std::string& name) {
    return name.starts_with('.');
}

// Links to directories are not followed, so that a link to a parent is no trap. A directory that cannot be listed
// stands for itself: reading it fails with the reason, and everything beside it is still found.
std::vector<std::string> files_below(const std::string& directory, const InputOptions& options) {
    std::vector<std::string> found;
    std::vector<std::string> pending = {directory};
    const auto is_excluded = [&](const std::string& path, const std::string& name) {
        const std::string below = path.substr(path.find_first_not_of('/', directory.size()));
        return !options.excluded.empty() && (matches(name, options.excluded) || matches(below, options.excluded));
    };
    while (!pending.empty()) {
        const std::string current = std::move(pending.back());
        pending.pop_back();
        std::error_code trouble;
        stdfs::directory_iterator entry(current, trouble);
        for (; !trouble && entry != stdfs::directory_iterator(); entry.increment(trouble)) {
            std::error_code unknown;
            std::string path = entry->path().string();
            const std::string name = entry->path().filename().string();
            const bool is_directory = entry->symlink_status(unknown).type() == stdfs::file_type::directory;
            const bool is_wanted = is_directory ? !is_hidden(name) : matches(name, options.patterns);
            if (!is_wanted || is_excluded(path, name)) {
                continue;
            }
            if (is_directory) {
                pending.push_back(std::move(path));
            } else if (entry->is_regular_file(unknown)) {
                found.push_back(std::move(path));
            }
        }
        if (trouble == std::errc::not_enough_memory) {
            throw std::bad_alloc();
        }
        if (trouble) {
            found.push_back(current);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

void add_path(const std::string& path, const InputOptions& options, std::vector<Input>& inputs) {
    std::error_code no_directory;
    if (!stdfs::is_directory(path, no_directory)) {
        inputs.push_back({path, path});
        return;
    }
    const std::vector<std::string> files = files_below(path, options);
    if (files.empty() && !options.may_be_empty) {
        std::string patterns;
        for (const std::string& pattern : options.patterns) {
            patterns += " " + pattern;
        }
        throw std::runtime_error("no file in '" + path + "' matches" + patterns + " (--allow-empty accepts that)");
    }
    for (const std::string& file : files) {
        inputs.push_back({file, file});
    }
}

// One path a line, or with a NUL byte after each, as `find -print0` writes them.
void add_listed(const InputOptions& options, std::vector<Input>& inputs) {
    const Input source{options.list_path, options.list_path == "-" ? "<stdin>" : options.list_path};
    const std::string list = read_input(source);
    const char separator = list.find('\0') == std::string::npos ? '\n' : '\0';
    const std::size_t before = inputs.size();
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find(separator, begin), list.size());
        const std::string path = list.substr(begin, end - begin);
        if (!path.empty()) {
            add_path(path == "-" ? "./-" : path, options, inputs);
        }
        begin = end + 1;
    }
    if (inputs.size() == before && !options.may_be_empty) {
        throw std::runtime_error("'" + source.name + "' names no file (--allow-empty accepts that)");
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

[[noreturn]] void refuse_to_read(const Input& input, const std::string& reason) {
    throw std::runtime_error("cannot read '" + input.name + "': " + reason);
}

int open_to_read(const std::string& path) {
    for (;;) {
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (file >= 0 || errno != EINTR) {
            return file;
        }
    }
}

// Throws as `read_input` does. Nothing is read of a file, and what is no file is not opened: it might be read once
// only.
void try_to_open(const Input& input) {
    std::error_code unknown;
    const stdfs::file_status status = stdfs::status(input.path, unknown);
    if (input.path == "-" || (stdfs::exists(status) && !is_regular_file(status) && !is_directory(status))) {
        return;
    }
    if (is_directory(status)) {
        read_input(input);
    }
    const int file = open_to_read(input.path);
    if (file < 0) {
        refuse_to_read(input, std::generic_category().message(errno));
    }
    ::close(file);
}

// A word that looks like an input file was meant as one.
std::string question_about(const std::string& path, const InputOptions& options) {
    std::error_code unknown;
    const auto is_word = [&](const std::string& text) {
        return !matches(text, options.patterns) && !stdfs::exists(text, unknown);
    };
    const auto at =
        static_cast<std::size_t>(std::find(options.paths.begin(), options.paths.end(), path) - options.paths.begin());
    if (at >= options.before.size() || options.before[at].option.empty() || !is_word(path)) {
        return {};
    }
    const auto& [option, value] = options.before[at];
    if (value.empty()) {
        return "; did you mean " + option + "=" + path + "?";
    }
    std::string whole = value + " " + path;
    for (std::size_t next = at + 1;
         next < options.paths.size() && options.before[next].option.empty() && is_word(options.paths[next]); ++next) {
        whole += " " + options.paths[next];
    }
    return "; did you mean " + option + " '" + whole + "'?";
}

}  // namespace

std::vector<Input> collect_inputs(const InputOptions& options) {
    const EndWithoutMemory guard;  // listing a directory would abort
    std::vector<Input> inputs;
    for (const std::string& path : options.paths) {
        if (path == "-") {
            inputs.push_back({path, options.stdin_name});
        } else {
            add_path(path, options, inputs);
        }
    }
    if (!options.list_path.empty()) {
        add_listed(options, inputs);
    }
    remove_repeated(inputs);
    return inputs;
}

bool is_one_file(const InputOptions& options, const std::vector<Input>& inputs) {
    return options.paths.size() == 1 && inputs.size() == 1 && inputs.front().path == options.paths.front();
}

bool can_all_be_read(const InputOptions& options, const std::vector<Input>& inputs) {
    bool all = true;
    for (const Input& input : inputs) {
        try {
            try_to_open(input);
        } catch (const std::runtime_error& error) {
            complain(error.what() + question_about(input.path, options));
            all = false;
        }
    }
    return all;
}

std::string read_input(const Input& input) {
    try {
        return input.path == "-" ? read_standard_input() : velk::core::fs::read_text_file(input.path);
    } catch (const std::runtime_error& error) {
        refuse_to_read(input, error.what());
    }
}

}  // namespace amesp_inp
