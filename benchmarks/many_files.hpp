// Ten thousand files of one kilobyte, and the schema that they follow, in a directory of their own that is removed when
// the program ends.
#pragma once

#include <string>
#include <vector>

namespace velk::bench {

const std::vector<std::string>& many_files();
const std::string& schema_file();

}  // namespace velk::bench
