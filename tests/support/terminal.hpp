// A terminal, as a program finds it on its standard output.
#pragma once

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

namespace velk::test {

class Terminal {
public:
    Terminal() : screen_(::posix_openpt(O_RDWR | O_NOCTTY)) {
        if (screen_ < 0 || ::grantpt(screen_) != 0 || ::unlockpt(screen_) != 0) {
            throw std::runtime_error("cannot open a terminal");
        }
        path_ = ::ptsname(screen_);
        line_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY);
        termios mode{};
        ::tcgetattr(line_, &mode);
        ::cfmakeraw(&mode);  // no byte becomes another on its way
        ::tcsetattr(line_, TCSANOW, &mode);
        reader_ = std::thread([this] { read(); });
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        close();
        ::close(screen_);
    }

    const std::string& path() const { return path_; }

    // What was written to it, once all who wrote have ended.
    const std::string& text() {
        close();
        return text_;
    }

private:
    void close() {
        if (reader_.joinable()) {
            ::close(line_);
            reader_.join();
        }
    }

    void read() {
        std::array<char, 4096> buffer;
        for (ssize_t count; (count = ::read(screen_, buffer.data(), buffer.size())) > 0;) {
            text_.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

    int screen_;
    int line_ = -1;
    std::string path_;
    std::string text_;
    std::thread reader_;
};

}  // namespace velk::test
