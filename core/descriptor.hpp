// What reading and writing files have in common: descriptors that close themselves, and calls that are tried again.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <utility>

namespace velk::core::fs {

// One call moves at most this much, well below the limit that the kernel sets.
constexpr std::size_t largest_transfer = std::size_t{1} << 30;
constexpr std::size_t smallest_buffer = std::size_t{64} << 10;

class File {
public:
    explicit File(int descriptor) noexcept : descriptor_(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(); }

    explicit operator bool() const noexcept { return descriptor_ >= 0; }
    int get() const noexcept { return descriptor_; }

    // Some file systems report a failed write only here. An interrupted close has closed the descriptor all the same.
    bool close() noexcept {
        const int descriptor = std::exchange(descriptor_, -1);
        return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR;
    }

private:
    int descriptor_;
};

template <class Call>
auto retry_interrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

// The system's description of an error; it lives for ever.
inline const char* description(int error) noexcept {
#if defined(__GLIBC__) && !defined(VELK_CORE_PORTABLE)
    const char* const text = ::strerrordesc_np(error);  // unlike strerror: thread-safe and in no process locale
#else
    const char* const text = ::strerror(error);
#endif
    return text != nullptr ? text : "Unknown error";
}

}  // namespace velk::core::fs
