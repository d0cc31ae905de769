// The version of this library.
#include <velk/input/amesp/version.hpp>

#define VELK_TEXT_OF(number) #number
#define VELK_VERSION_TEXT(major, minor, patch) VELK_TEXT_OF(major) "." VELK_TEXT_OF(minor) "." VELK_TEXT_OF(patch)

namespace velk::input::amesp {

const char* version() noexcept {
    return VELK_VERSION_TEXT(VELK_AMESP_INP_VERSION_MAJOR, VELK_AMESP_INP_VERSION_MINOR, VELK_AMESP_INP_VERSION_PATCH);
}

}  // namespace velk::input::amesp
