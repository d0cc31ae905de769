// Writes files and puts into words what became of it.
#include "output_file.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <velk/core/fs.hpp>

namespace amesp_inp {
namespace {

// Of what a symbolic link points to.
std::optional<struct stat> status_of(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
    throw std::runtime_error("cannot write '" + path + "': " + reason);
}

// Whoever may do everything is told by the mode bits.
bool is_write_protected(const std::string& path, const struct stat& status) {
    constexpr mode_t all_write = 0222;
    return (status.st_mode & all_write) == 0 || (::access(path.c_str(), W_OK) != 0 && errno == EACCES);
}

}  // namespace

std::string guard_of(const std::string& path) {
    const std::optional<struct stat> status = status_of(path);
    if (!status || !S_ISREG(status->st_mode)) {
        return {};  // the write itself says what is wrong
    }
    if (is_write_protected(path, *status)) {
        return "it is write-protected (--force replaces it)";
    }
    if (status->st_nlink > 1) {
        return "it has " + std::to_string(status->st_nlink) +
               " hard links, of which the others would keep the old content (--force replaces it)";
    }
    return {};
}

void refuse_guarded(const std::string& path) {
    if (const std::string guard = guard_of(path); !guard.empty()) {
        refuse(path, guard);
    }
}

void refuse_existing(const std::string& path) {
    if (status_of(path)) {
        refuse(path, "it exists (--force replaces it)");
    }
}

void refuse_same_file(const std::string& path, const std::string& read) {
    const std::optional<struct stat> one = status_of(path);
    const std::optional<struct stat> other = status_of(read);
    if (one && other && one->st_dev == other->st_dev && one->st_ino == other->st_ino) {
        refuse(path, "it is the input file (--force replaces it)");
    }
}

std::string write_output_file(const std::string& path, std::string_view text, bool force) {
    using velk::core::fs::WriteOutcome;
    if (!force) {
        refuse_guarded(path);
    }
    const auto [outcome, reason] = velk::core::fs::write_text_file(path, text);
    if (outcome == WriteOutcome::not_written) {
        refuse(path, std::string(reason));
    }
    if (outcome == WriteOutcome::not_synced) {
        return "warning: '" + path + "' is written, but its directory could not be synced: " + std::string(reason);
    }
    return {};
}

}  // namespace amesp_inp
