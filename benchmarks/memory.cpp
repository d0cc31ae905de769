// Counts allocations and heap bytes. A program of its own, so that counting slows down nothing that is timed.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include <velk/input/amesp/parser.hpp>

#include "floor.hpp"
#include "table.hpp"
#include "texts.hpp"

namespace {

struct Heap {
    std::size_t allocations = 0;
    std::size_t bytes = 0;  // as the allocator rounds them up
    std::size_t peak = 0;
};
Heap heap;

}  // namespace

void* operator new(std::size_t size) {
    void* const place = std::malloc(size);
    if (place == nullptr) {
        throw std::bad_alloc();
    }
    ++heap.allocations;
    heap.bytes += ::malloc_usable_size(place);
    heap.peak = std::max(heap.peak, heap.bytes);
    return place;
}

void operator delete(void* place) noexcept {
    heap.bytes -= place != nullptr ? ::malloc_usable_size(place) : 0;
    std::free(place);
}

void operator delete(void* place, std::size_t /*size*/) noexcept {
    operator delete(place);
}

namespace velk::bench {
namespace {

using namespace input::amesp;

struct Use {
    double allocations = 0.0;
    double peak = 0.0;
    double kept = 0.0;  // by the result
};

template <class Call>
Use measure(Call call) {
    const Heap before = heap;
    heap.peak = heap.bytes;
    const auto result = call();
    const Heap after = heap;
    return {static_cast<double>(after.allocations - before.allocations), static_cast<double>(after.peak - before.bytes),
            static_cast<double>(after.bytes - before.bytes)};
}

std::string count_text(double allocations) {
    char text[64];
    std::snprintf(text, sizeof text, "%.0f allocations", allocations);
    return text;
}

std::string bytes_text(double first, double second) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f MB / %.2f MB", first * 1e-6, second * 1e-6);
    return text;
}

void add_rows(const std::string& records, const std::string& text, double count, Target allocations, Target peak) {
    const FloorNames names = floor_names(schema().tables());
    const Use library = measure([&] { return AIPParser::parse_string(text, schema(), {}); });
    const Use floor = measure([&] { return floor_parse(text, names); });
    print_row("allocations per record, parse " + records, library.allocations / count, allocations,
              count_text(library.allocations));
    print_row("heap peak, parse " + records + " / floor", library.peak / floor.peak, peak,
              bytes_text(library.peak, floor.peak));
    print_row("heap peak, parse " + records + " / what the floor's records own", library.peak / floor.kept, no_target(),
              bytes_text(library.peak, floor.kept));
}

std::string tokens_text(std::size_t count) {
    std::string text = "!";
    for (std::size_t i = 0; i < count; ++i) {
        text += (i % 2 == 0 ? " functional-" : " basis-") + std::to_string(i % 200);
    }
    return text + '\n';
}

}  // namespace
}  // namespace velk::bench

int main() {
    using namespace velk::bench;
    constexpr Target allocations = at_most(1.05);
    add_rows("1e3 atoms", coordinates_text(1000), 1e3, allocations, at_most(1.05));
    add_rows("1e5 atoms", coordinates_text(100000), 1e5, allocations, at_most(1.05));
    add_rows("1e6 atoms", coordinates_text(1000000), 1e6, allocations, at_most(1.05));
    add_rows("1e3 entries", entries_text(1000), 1e3, no_target(), at_most(1.1));
    add_rows("1e5 entries", entries_text(100000), 1e5, no_target(), at_most(1.1));
    add_rows("1e4 tokens", tokens_text(10000), 1e4, no_target(), no_target());
}
