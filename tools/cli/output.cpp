// Writing to the program's streams.
#include "output.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace amesp_inp {
namespace {

using velk::input::amesp::take_printable;

// Gathers pieces, so that a line goes out in one piece, without memory that there may be none of.
class ErrorText {
public:
    ErrorText() = default;
    ErrorText(const ErrorText&) = delete;
    ErrorText& operator=(const ErrorText&) = delete;
    ~ErrorText() { flush(); }

    void add_printable(std::string_view text, Layout layout) {
        while (!text.empty()) {
            add(take_printable(text, layout));
        }
    }

    void add(std::string_view piece) {
        while (!piece.empty()) {
            const std::size_t count = std::min(piece.size(), buffer_.size() - size_);
            std::copy_n(piece.begin(), count, buffer_.begin() + static_cast<std::ptrdiff_t>(size_));
            size_ += count;
            piece.remove_prefix(count);
            if (size_ == buffer_.size()) {
                flush();
            }
        }
    }

private:
    void flush() {
        std::fwrite(buffer_.data(), 1, size_, stderr);
        size_ = 0;
    }

    std::array<char, 1024> buffer_;
    std::size_t size_ = 0;
};

void print_complaint(std::string_view message, Layout layout) {
    ErrorText text;
    text.add("amesp-inp: ");
    text.add_printable(message, layout);
    text.add("\n");
}

}  // namespace

void print(std::string_view text, Layout layout) {
    static const bool to_terminal = ::isatty(STDOUT_FILENO) == 1;
    if (!to_terminal) {
        print_styled(text);
        return;
    }
    while (!text.empty()) {
        print_styled(take_printable(text, layout));
    }
}

void print_styled(std::string_view text) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

bool use_color(const std::string& when, int descriptor) {
    if (when != "auto") {
        return when == "always";
    }
    const char* const no_color = std::getenv("NO_COLOR");
    return (no_color == nullptr || *no_color == '\0') && ::isatty(descriptor) == 1;
}

bool flush_output() {
    std::cout.flush();
    return std::cout.good();
}

bool messages_are_written() {
    return std::ferror(stderr) == 0;
}

void complain(std::string_view message) {
    print_complaint(message, Layout::none);
}

void complain_in_lines(std::string_view message) {
    print_complaint(message, Layout::lines);
}

void complain_about_usage(std::string_view verb, std::string_view message) {
    ErrorText text;
    const auto add_program = [&] {
        text.add("amesp-inp");
        text.add(verb.empty() ? "" : " ");
        text.add(verb);
    };
    add_program();
    text.add(": ");
    text.add_printable(message, Layout::none);
    text.add("\nTry '");
    add_program();
    text.add(" --help'.\n");
}

}  // namespace amesp_inp
