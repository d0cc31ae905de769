// Whole-file reading and atomic replacement, on POSIX calls.
#include <velk/core/fs.hpp>

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <utility>

#include "large_room.hpp"

namespace velk::core::fs {
namespace {

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

[[noreturn]] void throw_errno(int error) {
    const char* const text = ::strerrordesc_np(error);  // unlike strerror: thread-safe and in no process locale
    throw std::runtime_error(text != nullptr ? text : "Unknown error");
}

// The file that a write to `path` replaces: what a symbolic link points to, existing or not.
std::optional<std::string> link_target(std::string path) {
    constexpr int most_links = 40;
    std::string target(smallest_buffer, '\0');
    for (int followed = 0; followed <= most_links; ++followed) {
        const ssize_t length =
            retry_interrupted([&] { return ::readlink(path.c_str(), target.data(), target.size()); });
        if (length < 0) {
            return path;
        }
        const std::string_view pointee(target.data(), static_cast<std::size_t>(length));
        if (pointee.starts_with('/')) {
            path = pointee;
        } else {
            const std::size_t slash = path.rfind('/');
            path.resize(slash == std::string::npos ? 0 : slash + 1);
            path += pointee;
        }
    }
    return std::nullopt;
}

bool write_all(int descriptor, std::string_view content) noexcept {
    while (!content.empty()) {
        const std::size_t size = std::min(content.size(), largest_transfer);
        const ssize_t written = retry_interrupted([&] { return ::write(descriptor, content.data(), size); });
        if (written < 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool sync(int descriptor) noexcept {
    return retry_interrupted([&] { return ::fsync(descriptor); }) == 0;
}

// Makes the rename itself last. File systems that cannot sync a directory say EINVAL: there is no more to be had.
bool sync_directory(int descriptor) noexcept {
    return sync(descriptor) || errno == EINVAL;
}

constexpr mode_t permission_bits = 07777;
constexpr mode_t owner_only = 0600;
constexpr mode_t all_read_write = 0666;

// A new file in `directory` (empty, or ending in a slash), its path in `path`. The kernel applies the process's file
// mode mask to `mode`.
int create_temporary(std::string_view directory, mode_t mode, std::string& path) {
    constexpr int most_attempts = 100;
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        std::uint64_t number = 0;
        if (retry_interrupted([&] { return ::getrandom(&number, sizeof number, 0); }) != sizeof number) {
            return -1;
        }
        path = directory;
        path += ".velk-" + std::to_string(number) + ".tmp";
        const int descriptor = retry_interrupted(
            [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode); });
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
    return -1;
}

// Gives the temporary file what belongs to the file it replaces: the mode bits always, owner and group where the
// process may.
bool take_over_attributes(int descriptor, const struct stat& existing) noexcept {
    const auto set_owner = [&](uid_t owner) {
        return retry_interrupted([&] { return ::fchown(descriptor, owner, existing.st_gid); }) == 0;
    };
    if (!set_owner(existing.st_uid)) {
        static_cast<void>(set_owner(static_cast<uid_t>(-1)));
    }
    return retry_interrupted([&] { return ::fchmod(descriptor, existing.st_mode & permission_bits); }) == 0;
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

bool write_text_file_atomic(const std::string& path, std::string_view content) {
    if (path.empty() || path.find('\0') != std::string::npos) {
        return false;
    }
    const std::optional<std::string> target = link_target(path);
    if (!target) {
        return false;
    }
    struct stat existing {};
    const bool exists = retry_interrupted([&] { return ::lstat(target->c_str(), &existing); }) == 0;
    if (exists ? !S_ISREG(existing.st_mode) : errno != ENOENT) {
        return false;
    }
    const std::string_view directory = std::string_view(*target).substr(0, target->rfind('/') + 1);

    // Opened first: what can fail shall fail before the target changes.
    const std::string directory_path = directory.empty() ? "." : std::string(directory);
    const File directory_file(
        retry_interrupted([&] { return ::open(directory_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!directory_file) {
        return false;
    }
    std::string temporary;
    File file(create_temporary(directory, exists ? owner_only : all_read_write, temporary));
    if (!file) {
        return false;
    }
    const bool written =
        write_all(file.get(), content) && (!exists || take_over_attributes(file.get(), existing)) && sync(file.get());
    if (!file.close() || !written || ::rename(temporary.c_str(), target->c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    return sync_directory(directory_file.get());
}

}  // namespace velk::core::fs
