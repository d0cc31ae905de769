// Every form of operator new, with failures to order and a count of what is alive.
#include "faults/allocations.hpp"

#include <malloc.h>

#include <cstddef>
#include <cstdlib>

namespace {

thread_local velk::test::Failing failing = velk::test::Failing::never;
thread_local long allocations_left = 0;
thread_local bool failed = false;
thread_local long live = 0;

bool next_fails() {
    if (failing == velk::test::Failing::never || allocations_left-- > 0) {
        return false;
    }
    if (failing == velk::test::Failing::once) {
        failing = velk::test::Failing::never;
    }
    failed = true;
    return true;
}

void* allocate(std::size_t size, std::size_t alignment) noexcept {
    if (next_fails()) {
        return nullptr;
    }
    const std::size_t rounded = (size + alignment) / alignment * alignment;  // at least one byte
    void* const memory = std::aligned_alloc(alignment, rounded);
    if (memory != nullptr) {
        live += static_cast<long>(::malloc_usable_size(memory));
    }
    return memory;
}

void* allocate_or_throw(std::size_t size, std::size_t alignment) {
    if (void* const memory = allocate(size, alignment)) {
        return memory;
    }
    throw std::bad_alloc();
}

void release(void* memory) noexcept {
    if (memory != nullptr) {
        live -= static_cast<long>(::malloc_usable_size(memory));
        std::free(memory);
    }
}

constexpr std::size_t usual = alignof(std::max_align_t);

constexpr std::size_t number(std::align_val_t alignment) {
    return static_cast<std::size_t>(alignment);
}

}  // namespace

namespace velk::test {

void begin_failing(Failing how, long after) {
    allocations_left = after;
    failed = false;
    failing = how;
}

bool end_failing() {
    failing = Failing::never;
    return failed;
}

long live_bytes() {
    return live;
}

}  // namespace velk::test

// The compiler's own declarations name these parameters; here they only choose the form.
using std::align_val_t;
using std::nothrow_t;
using std::size_t;

void* operator new(size_t size) {
    return allocate_or_throw(size, usual);
}
void* operator new[](size_t size) {
    return allocate_or_throw(size, usual);
}
void* operator new(size_t size, const nothrow_t& /**/) noexcept {
    return allocate(size, usual);
}
void* operator new[](size_t size, const nothrow_t& /**/) noexcept {
    return allocate(size, usual);
}
void* operator new(size_t size, align_val_t to) {
    return allocate_or_throw(size, number(to));
}
void* operator new[](size_t size, align_val_t to) {
    return allocate_or_throw(size, number(to));
}
void* operator new(size_t size, align_val_t to, const nothrow_t& /**/) noexcept {
    return allocate(size, number(to));
}
void* operator new[](size_t size, align_val_t to, const nothrow_t& /**/) noexcept {
    return allocate(size, number(to));
}

void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, size_t /**/) noexcept {
    release(memory);
}
void operator delete[](void* memory, size_t /**/) noexcept {
    release(memory);
}
void operator delete(void* memory, const nothrow_t& /**/) noexcept {
    release(memory);
}
void operator delete[](void* memory, const nothrow_t& /**/) noexcept {
    release(memory);
}
void operator delete(void* memory, align_val_t /**/) noexcept {
    release(memory);
}
void operator delete[](void* memory, align_val_t /**/) noexcept {
    release(memory);
}
void operator delete(void* memory, size_t /**/, align_val_t /**/) noexcept {
    release(memory);
}
void operator delete[](void* memory, size_t /**/, align_val_t /**/) noexcept {
    release(memory);
}
void operator delete(void* memory, align_val_t /**/, const nothrow_t& /**/) noexcept {
    release(memory);
}
void operator delete[](void* memory, align_val_t /**/, const nothrow_t& /**/) noexcept {
    release(memory);
}
