// How a fuzzer says that a law is broken: with words, and by ending the process, which keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace velk::fuzz {

inline void require(bool holds, const char* law, const std::string& details = {}) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n%s\n", law, details.c_str());
        std::abort();
    }
}

}  // namespace velk::fuzz
