// Writing coordinates against printf and streams.
#include <cstdio>
#include <iomanip>
#include <sstream>

#include <velk/input/amesp/editor.hpp>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "written_atoms.hpp"

namespace velk::bench {
namespace {

std::string print() {
    std::string text;
    char line[128];
    for (const AtomRecord& atom : atoms()) {
        const int size =
            std::snprintf(line, sizeof line, "  %s %.10f %.10f %.10f\n", atom.symbol.c_str(), atom.x, atom.y, atom.z);
        text.append(line, static_cast<std::size_t>(size));
    }
    return text;
}

std::string stream() {
    std::ostringstream out;
    out << std::fixed << std::setprecision(10);
    for (const AtomRecord& atom : atoms()) {
        out << "  " << atom.symbol << ' ' << atom.x << ' ' << atom.y << ' ' << atom.z << '\n';
    }
    return out.str();
}

void add_rows() {
    add_pair("render 1e4 atoms / snprintf", writing_target, [] { return against_writer(print); });
    add_pair("render 1e4 atoms / streams", writing_target, [] { return against_writer(stream); });
}

const RowGroup group(Place::writing, add_rows);

}  // namespace
}  // namespace velk::bench
