// A library to preload into a program: one of its calls for files fails, is cut short, or is its last.
//
// VELK_FAULT_AT=N and VELK_FAULT=EIO|ENOSPC|EINTR|short|kill choose the Nth call and what becomes of it. With
// VELK_FAULT_BELOW=PREFIX the first call that counts is the first for a path with that prefix. VELK_FAULT_LOG=FILE gets
// the names of the calls that counted when the program ends by itself.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int most_calls = 1000;
std::atomic<int> calls = 0;
std::atomic<bool> counting = false;
const char* names[most_calls + 1] = {};

bool is_fault(const char* name) {
    const char* const chosen = std::getenv("VELK_FAULT");
    return chosen != nullptr && std::strcmp(chosen, name) == 0;
}

// Counts a call; says whether it is the one.
bool strikes(const char* name, const char* path = nullptr) {
    const char* const prefix = std::getenv("VELK_FAULT_BELOW");
    if (prefix == nullptr || (path != nullptr && std::strncmp(path, prefix, std::strlen(prefix)) == 0)) {
        counting = true;
    }
    if (!counting) {
        return false;
    }
    const int number = ++calls;
    names[number < most_calls ? number : most_calls] = name;
    const char* const at = std::getenv("VELK_FAULT_AT");
    if (at == nullptr || std::atoi(at) != number) {
        return false;
    }
    if (is_fault("kill")) {
        ::raise(SIGKILL);
    }
    return true;
}

// The error that the struck call reports; 0 when it goes on.
int chosen_error() {
    return is_fault("EIO") ? EIO : is_fault("ENOSPC") ? ENOSPC : is_fault("EINTR") ? EINTR : 0;
}

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

template <class Result, class... Parameters>
Result forward(const char* name, const char* path, Parameters... parameters) {
    if (const int error = strikes(name, path) ? chosen_error() : 0; error != 0) {
        errno = error;
        return -1;
    }
    return next<Result (*)(Parameters...)>(name)(parameters...);
}

// Half of what was asked for, when that is the fault.
template <class Bytes>
ssize_t transfer(const char* name, int file, Bytes bytes, std::size_t size) {
    const bool struck = strikes(name);
    if (const int error = struck ? chosen_error() : 0; error != 0) {
        errno = error;
        return -1;
    }
    const std::size_t part = struck && is_fault("short") ? (size + 1) / 2 : size;
    return next<ssize_t (*)(int, Bytes, std::size_t)>(name)(file, bytes, part);
}

__attribute__((destructor)) void write_log() {
    const char* const path = std::getenv("VELK_FAULT_LOG");
    if (path == nullptr) {
        return;
    }
    const long file = ::syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    for (int i = 1; i <= calls && i < most_calls; ++i) {
        ::syscall(SYS_write, file, names[i], std::strlen(names[i]));
        ::syscall(SYS_write, file, "\n", 1);
    }
    ::syscall(SYS_close, file);
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (const int error = strikes("open", path) ? chosen_error() : 0; error != 0) {
        errno = error;
        return -1;
    }
    return next<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}

ssize_t read(int file, void* bytes, std::size_t size) {
    return transfer("read", file, bytes, size);
}

ssize_t write(int file, const void* bytes, std::size_t size) {
    return transfer("write", file, bytes, size);
}

// The descriptor is closed whatever is reported.
int close(int file) {
    const int error = strikes("close") ? chosen_error() : 0;
    const int result = next<int (*)(int)>("close")(file);
    if (error != 0) {
        errno = error;
        return -1;
    }
    return result;
}

ssize_t readlink(const char* path, char* target, std::size_t size) noexcept {
    return forward<ssize_t>("readlink", path, path, target, size);
}

int lstat(const char* path, struct stat* status) noexcept {
    return forward<int>("lstat", path, path, status);
}

int fstat(int file, struct stat* status) noexcept {
    return forward<int>("fstat", nullptr, file, status);
}

int fsync(int file) {
    return forward<int>("fsync", nullptr, file);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
    return forward<int>("fchown", nullptr, file, owner, group);
}

int fchmod(int file, mode_t mode) noexcept {
    return forward<int>("fchmod", nullptr, file, mode);
}

int rename(const char* from, const char* to) noexcept {
    return forward<int>("rename", from, from, to);
}

int unlink(const char* path) noexcept {
    return forward<int>("unlink", path, path);
}

ssize_t getrandom(void* bytes, std::size_t size, unsigned flags) {
    return forward<ssize_t>("getrandom", nullptr, bytes, size, flags);
}

}  // extern "C"
