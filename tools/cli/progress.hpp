// A progress bar on standard error.
#pragma once

#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstdio>

namespace amesp_inp {

// A bar on standard error, once the work turns out to be long.
class Progress {
public:
    Progress(std::size_t total, bool wanted)
        : total_(total), wanted_(wanted && total > 1 && ::isatty(STDERR_FILENO) == 1) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { clear(); }

    void step() {
        ++done_;
        const auto now = Clock::now();
        if (!wanted_ || now < next_) {
            return;
        }
        constexpr int width = 30;
        const int filled = static_cast<int>(done_ * width / total_);
        std::fprintf(stderr, "\r[%.*s%*s] %zu/%zu", filled, "##############################", width - filled, "", done_,
                     total_);
        shown_ = true;
        next_ = now + std::chrono::milliseconds(100);
    }

    // Takes the bar away before something else is printed.
    void clear() {
        if (shown_) {
            std::fputs("\r\033[K", stderr);
            shown_ = false;
        }
    }

private:
    using Clock = std::chrono::steady_clock;
    std::size_t total_;
    bool wanted_;
    bool shown_ = false;
    std::size_t done_ = 0;
    Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
};

}  // namespace amesp_inp
