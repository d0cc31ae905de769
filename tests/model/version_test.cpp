// The version that the headers and the library state.
#include <gtest/gtest.h>

#include <string>

#include <velk/input/amesp/version.hpp>

namespace velk::input::amesp {
namespace {

TEST(Version, OfTheLibraryIsThatOfItsHeaders) {
    EXPECT_EQ(version(), std::to_string(VELK_AMESP_INP_VERSION_MAJOR) + "." +
                             std::to_string(VELK_AMESP_INP_VERSION_MINOR) + "." +
                             std::to_string(VELK_AMESP_INP_VERSION_PATCH));
}

}  // namespace
}  // namespace velk::input::amesp
