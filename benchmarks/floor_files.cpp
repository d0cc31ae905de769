// The floor of reading a file: its size, then its bytes.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

#include "floor.hpp"

namespace velk::bench {

FloorText floor_read_file(const char* path) {
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0) {
        throw std::runtime_error("cannot open a file of the benchmark");
    }
    FloorText text;
    text.size = static_cast<std::size_t>(status.st_size);
    text.bytes = std::make_unique_for_overwrite<char[]>(text.size);
    const bool is_whole = ::read(file, text.bytes.get(), text.size) == status.st_size;
    ::close(file);
    if (!is_whole) {
        throw std::runtime_error("cannot read a file of the benchmark");
    }
    return text;
}

}  // namespace velk::bench
