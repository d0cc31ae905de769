// Atomic replacement of whole files, on POSIX calls.
#include <velk/core/fs.hpp>

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "descriptor.hpp"

namespace velk::core::fs {
namespace {

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

// Leaves the reason in errno: one of its own where a call moved too little and did not say why.
bool moved(ssize_t count, bool enough) noexcept {
    if (!enough && count >= 0) {
        errno = EIO;
    }
    return enough;
}

bool write_all(int descriptor, std::string_view content) noexcept {
    while (!content.empty()) {
        const std::size_t size = std::min(content.size(), largest_transfer);
        const ssize_t written = retry_interrupted([&] { return ::write(descriptor, content.data(), size); });
        if (!moved(written, written > 0)) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool sync(int descriptor) noexcept {
    return retry_interrupted([&] { return ::fsync(descriptor); }) == 0;
}

constexpr mode_t permission_bits = 07777;
constexpr mode_t owner_only = 0600;
constexpr mode_t all_read_write = 0666;

// Keeps the reason for it in errno.
void remove(const std::string& path) noexcept {
    const int reason = errno;
    retry_interrupted([&] { return ::unlink(path.c_str()); });
    errno = reason;
}

// The new file `path` under a number that no standard stream has: where one of them is closed, what a program prints
// would go into the file. On failure there is no file.
int above_standard_streams(int descriptor, const std::string& path) noexcept {
    if (descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const File low(descriptor);
    const int high = ::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (high < 0) {
        remove(path);
    }
    return high;
}

// Fills it with bytes that nobody can guess: how many, or -1 with the reason in errno.
ssize_t take_random(std::uint64_t& number) {
#if defined(__linux__) && !defined(VELK_CORE_PORTABLE)
    return retry_interrupted([&] { return ::getrandom(&number, sizeof number, 0); });
#else
    return ::getentropy(&number, sizeof number) == 0 ? ssize_t{sizeof number} : -1;
#endif
}

// A new file in `directory` (empty, or ending in a slash), its path in `path`. The kernel applies the process's file
// mode mask to `mode`.
int create_temporary(std::string_view directory, mode_t mode, std::string& path) {
    constexpr int most_attempts = 100;
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        std::uint64_t number = 0;
        const ssize_t count = take_random(number);
        if (!moved(count, count == sizeof number)) {
            return -1;
        }
        path = directory;
        path += ".velk-" + std::to_string(number) + ".tmp";
        const int descriptor = retry_interrupted(
            [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode); });
        if (descriptor >= 0) {
            return above_standard_streams(descriptor, path);
        }
        if (errno != EEXIST) {
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

// The last steps before readers see the new bytes. Leaves the reason of a failure in errno.
bool fill(File& file, std::string_view content, const struct stat* existing) noexcept {
    return write_all(file.get(), content) && (existing == nullptr || take_over_attributes(file.get(), *existing)) &&
           sync(file.get()) && file.close();
}

// A rename that was interrupted may have happened all the same: nothing has the temporary name any more then.
bool rename_over(const std::string& temporary, const std::string& target) noexcept {
    bool interrupted = false;
    while (::rename(temporary.c_str(), target.c_str()) != 0) {
        if (errno != EINTR) {
            return interrupted && errno == ENOENT;
        }
        interrupted = true;
    }
    return true;
}

// Makes the rename itself last. File systems that cannot sync a directory say EINVAL: there is no more to be had.
WriteResult sync_directory(const File& directory, int reason_when_closed) noexcept {
    if (!directory) {
        return {WriteOutcome::not_synced, description(reason_when_closed)};
    }
    if (sync(directory.get()) || errno == EINVAL) {
        return {WriteOutcome::written, {}};
    }
    return {WriteOutcome::not_synced, description(errno)};
}

WriteResult not_written(int error) noexcept {
    return {WriteOutcome::not_written, description(error)};
}

WriteResult replace(const std::string& target, const struct stat* existing, std::string_view content) {
    const std::string_view directory = std::string_view(target).substr(0, target.rfind('/') + 1);

    // Opened first: what can fail shall fail before the target changes. A directory that may not be read takes files.
    const std::string directory_path = directory.empty() ? "." : std::string(directory);
    const File directory_file(
        retry_interrupted([&] { return ::open(directory_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    const int reason = errno;
    if (!directory_file && reason != EACCES) {
        return not_written(reason);
    }
    std::string temporary;
    File file(create_temporary(directory, existing != nullptr ? owner_only : all_read_write, temporary));
    if (!file) {
        return not_written(errno);
    }
    if (!fill(file, content, existing) || !rename_over(temporary, target)) {
        remove(temporary);
        return not_written(errno);
    }
    return sync_directory(directory_file, reason);
}

}  // namespace

WriteResult write_text_file(const std::string& path, std::string_view content) {
    if (path.empty() || path.find('\0') != std::string::npos) {
        return not_written(ENOENT);
    }
    const std::optional<std::string> target = link_target(path);
    if (!target) {
        return not_written(ELOOP);
    }
    struct stat existing {};
    if (retry_interrupted([&] { return ::lstat(target->c_str(), &existing); }) != 0) {
        return errno == ENOENT ? replace(*target, nullptr, content) : not_written(errno);
    }
    if (S_ISDIR(existing.st_mode)) {
        return not_written(EISDIR);
    }
    if (!S_ISREG(existing.st_mode)) {
        return {WriteOutcome::not_written, "Not a regular file"};
    }
    return replace(*target, &existing, content);
}

bool write_text_file_atomic(const std::string& path, std::string_view content) {
    return write_text_file(path, content).outcome != WriteOutcome::not_written;
}

}  // namespace velk::core::fs
