// A library to preload into a program: each allocation that its first thread makes in main() is tried as one that
// fails. The process forks there: in one child that allocation alone fails, in a second one all that follow fail, too,
// and the process itself goes on as if nothing had been.
//
// VELK_FAULT_LOG=FILE gets for each child, with a NUL byte after each: the number of the allocation, what fails, the
// exit status (negative: the signal), how much the process had written to its two streams before, what the child wrote
// to them, and what VELK_FAULT_BELOW=DIRECTORY holds then, which is put back. VELK_FAULT_UNTIL=N leaves it at so many.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
using Main = int(int, char**, char**);
using Start = int(Main*, int, char**, void (*)(), void (*)(), void (*)(), void*);
Start __libc_start_main;
}

namespace {

enum class Failing { none, once, lasting };

pid_t thread_of_main = 0;  // none: main() has not begun
bool is_paused = false;    // while this library works itself
Failing failing = Failing::none;
long allocations = 0;

using Files = std::map<std::string, std::string>;

Files files_below(const char* directory) {
    Files files;
    if (directory != nullptr) {
        for (const auto& entry : std::filesystem::directory_iterator(directory)) {
            std::ifstream file(entry.path(), std::ios::binary);
            files[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
        }
    }
    return files;
}

void put_back(const char* directory, const Files& before, const Files& after) {
    for (const auto& [name, content] : after) {
        if (!before.contains(name)) {
            std::filesystem::remove(std::filesystem::path(directory) / name);
        }
    }
    for (const auto& [name, content] : before) {
        if (!after.contains(name) || after.at(name) != content) {
            std::ofstream(std::filesystem::path(directory) / name, std::ios::binary) << content;
        }
    }
}

std::string flat(const Files& files) {
    std::string text;
    for (const auto& [name, content] : files) {
        text += name + ":" + content + ";";
    }
    return text;
}

// What a child writes to one of the standard streams.
class Stream {
public:
    explicit Stream(int number) : number_(number), kept_(::memfd_create("stream", MFD_CLOEXEC)) {}

    // In the child.
    void take_over() const { ::dup2(kept_, number_); }

    std::string take() const {
        std::string text(static_cast<std::size_t>(::lseek(kept_, 0, SEEK_END)), '\0');
        const ssize_t count = ::pread(kept_, text.data(), text.size(), 0);
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (::ftruncate(kept_, 0) != 0) {
            std::abort();
        }
        ::lseek(kept_, 0, SEEK_SET);
        return text;
    }

private:
    int number_;
    int kept_;
};

struct Recorder {
    Stream out{STDOUT_FILENO};
    Stream err{STDERR_FILENO};
    const char* directory = std::getenv("VELK_FAULT_BELOW");
    const char* until = std::getenv("VELK_FAULT_UNTIL");
    std::string log;
};

template <class... Field>
void add(std::string& log, const Field&... field) {
    ((log += field, log += '\0'), ...);
}

// True in the child, which is the one to fail.
bool child_fails(Recorder& recorder, Failing how) {
    constexpr unsigned too_long = 60;
    const Files before = files_below(recorder.directory);
    const std::string printed = std::to_string(::lseek(STDOUT_FILENO, 0, SEEK_CUR));
    const std::string complained = std::to_string(::lseek(STDERR_FILENO, 0, SEEK_CUR));
    const pid_t child = ::fork();
    if (child == 0) {
        recorder.out.take_over();
        recorder.err.take_over();
        failing = how;
        ::alarm(too_long);
        return true;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    const Files after = files_below(recorder.directory);
    add(recorder.log, std::to_string(allocations), how == Failing::once ? "once" : "lasting",
        std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status)), printed, complained,
        recorder.out.take(), recorder.err.take(), flat(after));
    put_back(recorder.directory, before, after);
    return false;
}

Recorder* recorder = nullptr;

bool strikes() {
    if (failing != Failing::none) {
        return failing == Failing::lasting;
    }
    if (is_paused || thread_of_main != ::gettid()) {
        return false;
    }
    const int error = errno;
    ++allocations;
    is_paused = true;
    const bool fails = (recorder->until == nullptr || allocations <= std::atol(recorder->until)) &&
                       (child_fails(*recorder, Failing::once) || child_fails(*recorder, Failing::lasting));
    is_paused = false;
    errno = error;
    return fails;
}

void* without_memory() {
    errno = ENOMEM;
    return nullptr;
}

Main* main_of_program = nullptr;

int main_under_trial(int argc, char** argv, char** environment) {
    Recorder made;
    recorder = &made;
    thread_of_main = ::gettid();
    const int status = main_of_program(argc, argv, environment);
    thread_of_main = 0;
    if (failing == Failing::none) {
        if (const char* const path = std::getenv("VELK_FAULT_LOG")) {
            std::ofstream(path, std::ios::binary) << made.log;
        }
    } else if (std::getenv("LLVM_PROFILE_FILE") != nullptr) {
        ::_exit(status);  // thousands of counts of what has been reached would take minutes to write
    }
    return status;
}

}  // namespace

extern "C" {

int __libc_start_main(Main* main, int argc, char** argv, void (*init)(), void (*fini)(), void (*rtld_fini)(),
                      void* stack_end) {
    main_of_program = main;
    auto* const start = reinterpret_cast<Start*>(::dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(main_under_trial, argc, argv, init, fini, rtld_fini, stack_end);
}

void* malloc(std::size_t size) {
    return strikes() ? without_memory() : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return strikes() ? without_memory() : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    return strikes() ? without_memory() : __libc_realloc(memory, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return strikes() ? without_memory() : __libc_memalign(alignment, size);
}

}  // extern "C"
