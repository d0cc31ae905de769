// The library against the plain model of it: the first two bytes choose the schemas, the third the edits, and the rest
// is the text.
#include <cstddef>
#include <string>

#include "law.hpp"
#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/random_schema.hpp"
#include "run.hpp"

namespace velk::fuzz {

void run(const std::string& input) {
    using namespace oracle;
    if (input.size() < 3) {
        return;
    }
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(input[index]); };
    Chance chance(byte(0) + 256U * byte(1));
    const TablesHandle tables = random_schema(chance);
    const TablesHandle other = random_schema(chance);
    const std::string text = input.substr(3);
    std::string difference = difference_in_reading(text, tables, other);
    require(difference.empty(), "the library reads and writes as the model", difference);
    difference = difference_in_editing(text, tables, other, byte(2));
    require(difference.empty(), "the library edits as the model", difference);
}

}  // namespace velk::fuzz
