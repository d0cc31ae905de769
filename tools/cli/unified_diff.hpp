// The difference of two texts, as `patch -p1` takes it.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// Empty when the texts are equal. `name` stands in the head, as in patch_name.hpp. Time and memory are bounded: texts
// that differ in very many places are shown as one replaced block.
std::string unified_diff(std::string_view before, std::string_view after, std::string_view name);

}  // namespace amesp_inp
