// The program from start to finish, as a process of its own.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "many_files.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

// The exit status of a process whose output goes nowhere.
int run(const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int error = ::posix_spawnp(&process, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    require(error == 0 && ::waitpid(process, &status, 0) == process, "a program of the benchmark does not start");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<std::string> with_many_files(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), many_files().begin(), many_files().end());
    return arguments;
}

auto against(const std::vector<std::string>& program, const std::vector<std::string>& other) {
    constexpr bool wall_only = true;
    require(run(program) == 0 && run(other) == 0, "a program of the benchmark fails");
    return Contest([program] { return run(program); }, [other] { return run(other); }, 1.0, 1.0, wall_only);
}

void add_rows() {
    const std::string program = VELK_BENCH_PROGRAM;
    add_pair(
        "amesp-inp check of one file / loading the schema alone", at_most(1.12),
        [=] {
            return against({program, "check", VELK_BENCH_EXAMPLE}, {VELK_BENCH_LOAD_SCHEMA, VELK_BENCH_SCHEMA});
        },
        4.0);
    for (const std::string threads : {"1", "2"}) {
        add_pair(
            "amesp-inp check of 10,000 files, " + threads + (threads == "1" ? " thread" : " threads") + " / cat",
            no_target(),
            [=] {
                return against(with_many_files({program, "check", "--schema", schema_file(), "-j", threads}),
                               with_many_files({"cat"}));
            },
            5.0);
    }
}

const RowGroup group(Place::program, add_rows);

}  // namespace
}  // namespace velk::bench
