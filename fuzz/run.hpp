// What every fuzzer defines.
#pragma once

#include <string>

namespace velk::fuzz {

// Puts one input to the test; ends the process when a law is broken.
void run(const std::string& input);

}  // namespace velk::fuzz
