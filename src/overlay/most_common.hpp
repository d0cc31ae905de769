// What most elements of a list are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace velk::input::amesp::overlay {

template <class Value>
struct Common {
    Value value{};
    std::size_t count = 0;
};

// Of equally common values the one that stands last in the list; of an empty list a default value, no times.
template <class Value>
Common<Value> most_common(const std::vector<Value>& values) {
    std::vector<std::pair<Value, std::size_t>> sorted;
    sorted.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        sorted.emplace_back(values[i], i);
    }
    std::sort(sorted.begin(), sorted.end());
    Common<Value> best;
    std::size_t best_place = 0;
    for (auto run = sorted.begin(); run != sorted.end();) {
        const auto next =
            std::find_if(run, sorted.end(), [&](const auto& element) { return element.first != run->first; });
        const auto count = static_cast<std::size_t>(next - run);
        const std::size_t place = (next - 1)->second;
        if (std::pair(count, place) > std::pair(best.count, best_place)) {
            best = {run->first, count};
            best_place = place;
        }
        run = next;
    }
    return best;
}

}  // namespace velk::input::amesp::overlay
