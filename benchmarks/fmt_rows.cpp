// Writing coordinates against fmt.
#include <iterator>

#include <fmt/format.h>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "written_atoms.hpp"

namespace velk::bench {
namespace {

std::string format() {
    fmt::memory_buffer buffer;
    for (const AtomRecord& atom : atoms()) {
        fmt::format_to(std::back_inserter(buffer), "  {} {:.10f} {:.10f} {:.10f}\n", atom.symbol, atom.x, atom.y,
                       atom.z);
    }
    return fmt::to_string(buffer);
}

void add_rows() {
    add_pair("render 1e4 atoms / fmt", writing_target, [] { return against_writer(format); });
}

const RowGroup group(Place::writing, add_rows);

}  // namespace
}  // namespace velk::bench
