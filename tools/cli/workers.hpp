// Work on several threads whose results are used in order.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace amesp_inp {

// Results that are finished in any order and taken in the order of their numbers. Only so many are in work or waiting
// to be taken: who finishes early waits for room, so that one slow result does not let the others pile up.
template <class Result>
class OrderedResults {
public:
    OrderedResults(std::size_t count, std::size_t room) : count_(count), slots_(std::min(count, room)) {}

    // The number of the next result to work on, once there is room for it; none when all are given out or it is over.
    std::optional<std::size_t> next() {
        std::unique_lock lock(mutex_);
        const std::size_t number = given_;
        if (number == count_) {
            return std::nullopt;
        }
        ++given_;
        has_room_.wait(lock, [&] { return over_ || number < taken_ + slots_.size(); });
        return over_ ? std::nullopt : std::optional(number);
    }

    void put(std::size_t number, Result result) {
        const std::lock_guard lock(mutex_);
        slot(number).result = std::move(result);
        is_ready_.notify_one();
    }

    void put(std::size_t number, std::exception_ptr failure) {
        const std::lock_guard lock(mutex_);
        slot(number).failure = std::move(failure);
        is_ready_.notify_one();
    }

    // Waits for the next result in order, or throws what was put in its place.
    Result take() {
        std::unique_lock lock(mutex_);
        Slot& first = slot(taken_);
        is_ready_.wait(lock, [&] { return first.result || first.failure; });
        if (first.failure) {
            std::rethrow_exception(first.failure);
        }
        Result result = std::move(*first.result);
        first.result.reset();
        ++taken_;
        has_room_.notify_all();  // only the one whose slot this is goes on
        return result;
    }

    // Nothing is taken any more: nobody waits for room.
    void end() {
        const std::lock_guard lock(mutex_);
        over_ = true;
        has_room_.notify_all();
    }

private:
    struct Slot {
        std::optional<Result> result;
        std::exception_ptr failure;
    };

    Slot& slot(std::size_t number) { return slots_[number % slots_.size()]; }

    const std::size_t count_;
    std::mutex mutex_;
    std::condition_variable has_room_;
    std::condition_variable is_ready_;
    std::size_t given_ = 0;
    std::size_t taken_ = 0;
    bool over_ = false;
    std::vector<Slot> slots_;
};

// Runs `make(i)` for every i below `count` on so many threads, or as many of them as can be started, and `use` on the
// results, in order, on this thread; without any, both on this thread. What either throws is thrown, after the results
// before it have been used.
template <class Make, class Use>
void in_order(std::size_t count, std::size_t threads, Make make, Use use) {
    using Result = decltype(make(std::size_t{}));
    constexpr std::size_t room_per_thread = 4;
    const std::size_t wanted = std::min(threads, count);
    OrderedResults<Result> results(count, wanted * room_per_thread);
    const auto work = [&] {
        while (const std::optional<std::size_t> number = results.next()) {
            try {
                results.put(*number, make(*number));
            } catch (...) {
                results.put(*number, std::current_exception());
            }
        }
    };
    std::vector<std::jthread> workers;
    workers.reserve(wanted);
    try {
        while (wanted > 1 && workers.size() < wanted) {
            workers.emplace_back(work);
        }
    } catch (const std::exception&) {  // no more threads, or no memory for one
    }
    struct End {
        OrderedResults<Result>& results;
        ~End() { results.end(); }
    } const end{results};
    for (std::size_t i = 0; i < count; ++i) {
        use(workers.empty() ? make(i) : results.take());
    }
}

}  // namespace amesp_inp
