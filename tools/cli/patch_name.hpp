// File names in printed differences.
#pragma once

#include <string>
#include <string_view>

namespace amesp_inp {

// `name` as it stands in the head of a difference, below `side` ("a/"): in its shortest spelling, without the slashes
// before it, and quoted as git does where it would not be read back.
std::string patch_name(std::string_view side, std::string_view name);

// `name` in a list with a line for each: quoted in the same way where it holds a control character, as a line feed.
std::string listed_name(std::string_view name);

}  // namespace amesp_inp
