// Ten thousand files of one kilobyte: the library on one thread and on two.
#include <atomic>
#include <thread>

#include <velk/input/amesp/parser.hpp>

#include "floor.hpp"
#include "many_files.hpp"
#include "pair.hpp"
#include "rows.hpp"
#include "texts.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

std::size_t atoms_of(const AIPData& data) {
    return data.sections.empty() ? 0 : data.sections.back().atoms.size();
}

// Each thread takes the next file until none is left. The number of atoms read, so that none was skipped.
std::size_t parse_all(unsigned thread_count, bool validate) {
    const std::vector<std::string>& paths = many_files();
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> atoms = 0;
    const auto work = [&] {
        std::size_t seen = 0;
        for (std::size_t i = next++; i < paths.size(); i = next++) {
            seen += atoms_of(AIPParser::parse_file(paths[i], schema(), {.validate = validate}).data);
        }
        atoms += seen;
    };
    std::vector<std::jthread> threads;
    for (unsigned i = 1; i < thread_count; ++i) {
        threads.emplace_back(work);
    }
    work();
    threads.clear();
    return atoms;
}

std::size_t floor_all(const FloorNames& names) {
    std::size_t atoms = 0;
    for (const std::string& path : many_files()) {
        atoms += atoms_of(floor_parse(floor_read_file(path.c_str()).view(), names));
    }
    return atoms;
}

auto against_floor(bool validate) {
    const FloorNames names = floor_names(schema().tables());
    require(parse_all(1, validate) == floor_all(names), "the floor reads other files");
    return Contest([validate] { return parse_all(1, validate); }, [names] { return floor_all(names); });
}

void add_rows() {
    add_pair(
        "parse 10,000 files of 1 kB / reading and the floor", at_most(1.2), [] { return against_floor(false); }, 5.0);
    add_pair(
        "parse and validate 10,000 files / reading and the floor", no_target(), [] { return against_floor(true); },
        3.0);
    add_pair(
        "10,000 files: one thread / two threads", at_least(1.8),
        [] {
            constexpr bool wall_only = true;
            return Contest([] { return parse_all(1, false); }, [] { return parse_all(2, false); }, 1.0, 1.0, wall_only);
        },
        5.0);
}

const RowGroup group(Place::files, add_rows);

}  // namespace
}  // namespace velk::bench
