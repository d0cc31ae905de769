// A library to preload into a program: the Nth allocation outside its first thread fails.
//
// VELK_FAULT_AT=N chooses it; VELK_FAULT_LOG=FILE gets the number of such allocations when the program ends by itself.
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

namespace {

std::atomic<long> allocations = 0;

bool strikes() {
    if (::syscall(SYS_gettid) == ::getpid()) {
        return false;
    }
    const char* const at = std::getenv("VELK_FAULT_AT");
    return ++allocations == (at == nullptr ? 0 : std::atol(at));
}

void* allocate(std::size_t size) noexcept {
    return strikes() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* allocate_or_throw(std::size_t size) {
    if (void* const memory = allocate(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

__attribute__((destructor)) void write_log() {
    const char* const path = std::getenv("VELK_FAULT_LOG");
    if (path == nullptr) {
        return;
    }
    const std::string number = std::to_string(allocations);
    const long file = ::syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::syscall(SYS_write, file, number.data(), number.size());
    ::syscall(SYS_close, file);
}

}  // namespace

// The forms that this project and its libraries use; operator delete stays free().
void* operator new(std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
