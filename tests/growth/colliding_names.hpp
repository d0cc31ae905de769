// Names made to meet in one place of a hash table.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velk::test {

// `n` names, up to 10,000, that have one std::hash once `before`, of up to four bytes, stands before each. So where
// the C++ library is that of GCC on a machine of 64 bits; elsewhere names that differ.
std::vector<std::string> colliding_names(std::size_t n, std::string_view before = "");

}  // namespace velk::test
