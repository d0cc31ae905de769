// Short forms of reading XYZ text for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <velk/input/amesp/xyz.hpp>

namespace velk::test {

// "LINE:COLUMN: MESSAGE"; "none" when there is no error. A result has either an error or a molecule.
inline std::string error_of(std::string_view text, std::uint64_t frame = input::amesp::XyzOptions::only_frame) {
    const input::amesp::XyzResult result = input::amesp::read_xyz(text, {frame});
    EXPECT_NE(result.error.has_value(), result.molecule.has_value()) << text;
    if (!result.error) {
        return "none";
    }
    return std::to_string(result.error->line) + ":" + std::to_string(result.error->column) + ": " +
           result.error->message;
}

}  // namespace velk::test
