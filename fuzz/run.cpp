// Where the fuzzing engine calls in.
#include "run.hpp"

#include <cstddef>
#include <cstdint>

// NOLINTNEXTLINE(readability-identifier-naming): the engine's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velk::fuzz::run(std::string(data, data + size));
    return 0;
}
