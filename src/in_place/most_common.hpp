// What most elements of a list are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>
#include <vector>

namespace velk::input::amesp::in_place {

template <class Value>
struct Common {
    Value value{};
    std::size_t count = 0;
};

// Neighbours in a list that are equal.
template <class Value>
struct Run {
    Value value{};
    std::size_t count = 0;
    std::size_t last = 0;
};

// Of equally common values the one that stands last in the list; of an empty list a default value, no times.
template <class Value>
Common<Value> most_common(const std::vector<Value>& values) {
    std::vector<Run<Value>> runs;  // neighbours that are equal, which most are, need no sorting
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (runs.empty() || runs.back().value != values[i]) {
            runs.push_back({values[i], 0, 0});
        }
        ++runs.back().count;
        runs.back().last = i;
    }
    std::sort(runs.begin(), runs.end(), [](const Run<Value>& a, const Run<Value>& b) {
        return std::tie(a.value, a.last) < std::tie(b.value, b.last);
    });
    Common<Value> best;
    std::size_t best_place = 0;
    for (auto run = runs.begin(); run != runs.end();) {
        std::size_t count = 0;
        const auto first = run;
        for (; run != runs.end() && run->value == first->value; ++run) {
            count += run->count;
        }
        const std::size_t place = (run - 1)->last;
        if (std::pair(count, place) > std::pair(best.count, best_place)) {
            best = {first->value, count};
            best_place = place;
        }
    }
    return best;
}

}  // namespace velk::input::amesp::in_place
