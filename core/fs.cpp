// Whole-file reading, on POSIX calls.
#include <velk/core/fs.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <stdexcept>

#include "large_room.hpp"

#include "descriptor.hpp"

namespace velk::core::fs {
namespace {

[[noreturn]] void throw_errno(int error) {
    throw std::runtime_error(description(error));
}

}  // namespace

std::string read_text_file(const std::string& path) {
    if (path.find('\0') != std::string::npos) {
        throw_errno(ENOENT);
    }
    const File file(retry_interrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
    struct stat status {};
    if (!file || retry_interrupted([&] { return ::fstat(file.get(), &status); }) != 0) {
        throw_errno(errno);
    }
    if (S_ISDIR(status.st_mode)) {
        throw_errno(EISDIR);
    }
    std::string content;
    const std::size_t expected = status.st_size > 0 ? static_cast<std::size_t>(status.st_size) : 0;
    const std::size_t size = S_ISREG(status.st_mode) && expected > 0 ? expected + 1 : smallest_buffer;
    reserve_room(content, size);
    content.resize(size);
    std::size_t filled = 0;
    while (true) {
        const std::size_t room = std::min(content.size() - filled, largest_transfer);
        const ssize_t count = retry_interrupted([&] { return ::read(file.get(), content.data() + filled, room); });
        if (count < 0) {
            throw_errno(errno);
        }
        if (count == 0) {
            content.resize(filled);
            return content;
        }
        filled += static_cast<std::size_t>(count);
        if (filled == content.size()) {
            content.resize(content.size() * 2);
        }
    }
}

}  // namespace velk::core::fs
