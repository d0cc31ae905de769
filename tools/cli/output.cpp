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

void complain(std::string_view message) {
    std::string line = "amesp-inp: ";
    for (const char c : message) {  // a message may have several lines
        if (c == '\n') {
            line += c;
        } else {
            append_printable(line, {&c, 1});
        }
    }
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

void append_printable(std::string& out, std::string_view text) {
    constexpr char delete_byte = 0x7F;
    for (const char c : text) {
        const bool is_control = (c >= 0 && c < ' ' && c != '\t') || c == delete_byte;
        out += is_control ? '?' : c;
    }
}

}  // namespace amesp_inp
