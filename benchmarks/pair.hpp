// Measures two ways of doing the same work against each other, in turns, and registers each such pair as a row.
#pragma once

#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <benchmark/benchmark.h>

#include "table.hpp"

namespace velk::bench {

// Wall time is fine for short calls: some of many run undisturbed. A long call never does on a busy machine; what
// counts for it is the processor time of its thread.
enum class Clock { wall, thread };

inline double seconds_now(Clock clock) {
    timespec now{};
    ::clock_gettime(clock == Clock::wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// The time of one call. Its result is let go of after the clock has stopped.
template <class Call>
double time_call(Call& call, Clock clock) {
    const double start = seconds_now(clock);
    auto result = call();
    benchmark::DoNotOptimize(result);
    benchmark::ClobberMemory();
    return seconds_now(clock) - start;
}

// One way of doing the work, the shortest time seen, and how many calls make a turn.
template <class Call>
class Side {
public:
    explicit Side(Call call) : call_(std::move(call)) {}

    // Warms up, too: a call right after one that let go of a million records finds the allocator busy tidying up.
    void choose_turn(bool wall_only) {
        constexpr double long_call = 1e-3;
        constexpr double turn = 1e-3;
        constexpr double most_calls = 1000;
        constexpr double warm_up = 0.02;
        const double end = seconds_now(Clock::wall) + warm_up;
        double shortest = time_call(call_, Clock::wall);
        for (int calls = 1; calls < 4 || seconds_now(Clock::wall) < end; ++calls) {
            shortest = std::min(shortest, time_call(call_, Clock::wall));
        }
        clock_ = shortest > long_call && !wall_only ? Clock::thread : Clock::wall;
        calls_ = static_cast<std::size_t>(std::clamp(turn / std::max(shortest, 1e-9), 1.0, most_calls));
    }

    void take_turn() {
        for (std::size_t i = 0; i < calls_; ++i) {
            shortest_ = std::min(shortest_, time_call(call_, clock_));
        }
    }

    double shortest() const noexcept { return shortest_; }

private:
    Call call_;
    Clock clock_ = Clock::wall;
    std::size_t calls_ = 1;
    double shortest_ = std::numeric_limits<double>::infinity();
};

// Two calls, and by how much their times are divided before they are compared.
template <class First, class Second>
struct Contest {
    First first;
    Second second;
    double first_units = 1.0;
    double second_units = 1.0;
    bool wall_only = false;  // for what runs on several threads or in other processes
};

template <class First, class Second>
Contest(First, Second) -> Contest<First, Second>;
template <class First, class Second>
Contest(First, Second, double, double) -> Contest<First, Second>;
template <class First, class Second>
Contest(First, Second, double, double, bool) -> Contest<First, Second>;

inline void require(bool condition, const char* claim) {
    if (!condition) {
        throw std::runtime_error(std::string("not comparable: ") + claim);
    }
}

// What the time of each row is multiplied by: AMESP_BENCH_PATIENCE, or 1. With 0 each side has one turn.
double patience();

void set_target(const std::string& row, Target target);
Target target_of(const std::string& row);

// Registers the row `name`: the first call's time divided by the second's. `make` makes the Contest when the row is
// measured, and checks there that both calls give the same result. The calls take turns until `seconds` are over.
template <class Make>
void add_pair(const std::string& name, Target target, Make make, double seconds = 1.0) {
    set_target(name, target);
    const auto run = [make, seconds](benchmark::State& state) {
        auto contest = make();
        Side first(std::move(contest.first));
        Side second(std::move(contest.second));
        first.choose_turn(contest.wall_only);
        second.choose_turn(contest.wall_only);
        for (auto _ : state) {
            const double end = seconds_now(Clock::wall) + seconds * patience();
            do {
                first.take_turn();
                second.take_turn();
            } while (seconds_now(Clock::wall) < end);
        }
        state.counters["first"] = first.shortest() / contest.first_units;
        state.counters["second"] = second.shortest() / contest.second_units;
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Iterations(1);
}

}  // namespace velk::bench
