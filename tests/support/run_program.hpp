// Runs the program amesp-inp, or another, as a user would: a process of its own, its two streams and its exit status.
#pragma once

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/temp_dir.hpp"

namespace velk::test {

struct ProgramRun {
    int status = -1;  // of a program that a signal ended: -1
    std::string out;
    std::string err;
};

struct RunOptions {
    std::string input = {};
    std::string out_path = {};   // standard output, when it shall be something else than a file to read back
    std::string directory = {};  // to run in
    std::vector<std::string> environment = {};  // "NAME=VALUE" each
    std::string program = AMESP_INP_PROGRAM;
    int input_descriptor = -1;  // standard input, when it shall be something else than a file
    std::vector<int> closed_streams = {};
    std::size_t address_space = 0;   // bytes that the program may have mapped; 0: no limit
    bool obeys_permissions = false;  // also when the tests run as root
};

constexpr int cannot_obey_permissions = 126;

// What lets root into every file is taken from the program that this process becomes.
inline bool obey_permissions() {
    return ::geteuid() != 0 || (::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) == 0 &&
                                ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0) == 0);
}

inline ProgramRun run_program(const std::vector<std::string>& arguments, const RunOptions& options = {}) {
    const TempDir dir;
    write_file(dir / "in", options.input);
    const std::string out_path = options.out_path.empty() ? dir / "out" : options.out_path;
    std::vector<std::string> words = {options.program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = options.environment;
    environment.push_back("HOME=" + dir.path());
    // What measures coverage, and puts a changed library before the tests, reaches the program as well.
    for (const char* const name : {"LLVM_PROFILE_FILE", "LD_LIBRARY_PATH"}) {
        if (const char* const value = std::getenv(name)) {
            environment.push_back(std::string(name) + "=" + value);
        }
    }

    const pid_t child = ::fork();
    if (child == 0) {
        std::vector<char*> argv;
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        std::vector<char*> envp;
        for (std::string& variable : environment) {
            envp.push_back(variable.data());
        }
        envp.push_back(nullptr);
        ::dup2(options.input_descriptor >= 0 ? options.input_descriptor : ::open((dir / "in").c_str(), O_RDONLY), 0);
        ::dup2(::open(out_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
        ::dup2(::open((dir / "err").c_str(), O_WRONLY | O_CREAT, 0600), 2);
        for (const int stream : options.closed_streams) {
            ::close(stream);
        }
        if (options.obeys_permissions && !obey_permissions()) {
            ::_exit(cannot_obey_permissions);
        }
        if (options.address_space != 0) {
            const rlimit limit{options.address_space, options.address_space};
            ::setrlimit(RLIMIT_AS, &limit);
        }
        if (options.directory.empty() || ::chdir(options.directory.c_str()) == 0) {
            ::execve(argv[0], argv.data(), envp.data());
        }
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, options.out_path.empty() ? read_file(out_path) : "",
            read_file(dir / "err")};
}

}  // namespace velk::test
