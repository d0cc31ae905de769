// A text as the library's YAML document and as yaml-cpp's own nodes.
#pragma once

#include <string>

namespace velk::oracle {

// Where the two differ in failing, in their nodes, or in the lines and columns of these; or where a place of the
// document is not that of what its text has there. Empty when all agrees.
std::string difference_in_yaml(const std::string& text);

}  // namespace velk::oracle
