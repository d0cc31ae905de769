// Writing to the program's streams.
#include "output.hpp"

#include <cstdio>
#include <iostream>

namespace amesp_inp {

void print(std::string_view text) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

bool flush_output() {
    std::cout.flush();
    return std::cout.good();
}

namespace {

void print_message(std::string line, std::string_view message) {
    for (std::size_t feed = message.find('\n'); feed != std::string_view::npos; feed = message.find('\n')) {
        append_printable(line, message.substr(0, feed));  // a message may have several lines
        line += '\n';
        message.remove_prefix(feed + 1);
    }
    append_printable(line, message);
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

}  // namespace

void complain(std::string_view message) {
    print_message("amesp-inp: ", message);
}

void complain_about_usage(const std::string& verb, const std::string& message) {
    const std::string program = verb.empty() ? "amesp-inp" : "amesp-inp " + verb;
    print_message(program + ": ", message + "\nTry '" + program + " --help'.");
}

void append_printable(std::string& out, std::string_view text) {
    const auto is_control = [](char c) { return (c >= '\0' && c < ' ' && c != '\t') || c == '\x7F'; };
    // A lead byte and one that would be a control byte but for its eighth bit.
    const auto is_wide_control = [](std::string_view two) {
        return two.size() == 2 && two[0] == '\xC2' && (static_cast<unsigned char>(two[1]) & 0xE0U) == 0x80U;
    };
    while (!text.empty()) {
        const bool is_wide = is_wide_control(text.substr(0, 2));
        out += is_wide || is_control(text.front()) ? '?' : text.front();
        text.remove_prefix(is_wide ? 2 : 1);
    }
}

}  // namespace amesp_inp
