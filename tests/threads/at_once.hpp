// The same work on many threads, begun at the same moment.
#pragma once

#include <barrier>
#include <cstddef>
#include <thread>
#include <vector>

namespace velk::test {

// Calls `work(i)` for every i below `count`, each on a thread of its own. None begins before all are there.
template <class Work>
void at_once(std::size_t count, Work work) {
    std::barrier all_here(static_cast<std::ptrdiff_t>(count));
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            all_here.arrive_and_wait();
            work(i);
        });
    }
}

}  // namespace velk::test
