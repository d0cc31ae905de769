// Work on several threads: results in order, few of them waiting, and threads that cannot be started.
#include "../tools/cli/workers.hpp"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>

namespace velk::test {
namespace {

using amesp_inp::in_order;

std::vector<std::size_t> numbers(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    for (std::size_t i = 0; i < count; ++i) {
        numbers[i] = i;
    }
    return numbers;
}

TEST(Workers, ResultsAreUsedInOrderOnTheCallingThread) {
    for (const std::size_t threads : {0U, 1U, 2U, 3U, 16U}) {
        for (const std::size_t count : {0U, 1U, 2U, 100U}) {
            std::vector<std::size_t> used;
            in_order(
                count, threads,
                [](std::size_t i) {
                    if (i % 7 == 0) {
                        std::this_thread::sleep_for(std::chrono::microseconds(200));
                    }
                    return std::make_unique<std::size_t>(i);  // can only be moved
                },
                [&, caller = std::this_thread::get_id()](std::unique_ptr<std::size_t> result) {
                    used.push_back(*result);
                    EXPECT_EQ(std::this_thread::get_id(), caller);
                });
            EXPECT_EQ(used, numbers(count)) << threads;
        }
    }
}

TEST(Workers, TheWorkIsDoneOnAsManyThreadsAsWereAskedFor) {
    std::mutex mutex;
    std::condition_variable all_here;
    std::set<std::thread::id> seen;
    in_order(
        50, 3,
        [&](std::size_t i) {
            std::unique_lock lock(mutex);
            seen.insert(std::this_thread::get_id());
            all_here.notify_all();
            EXPECT_TRUE(all_here.wait_for(lock, std::chrono::seconds(60), [&] { return seen.size() == 3; }));
            return i;
        },
        [](std::size_t) {});
    EXPECT_EQ(seen.size(), 3U);
    EXPECT_FALSE(seen.contains(std::this_thread::get_id()));
}

// The first result is made only when no other can be made any more.
TEST(Workers, AFirstResultThatIsSlowDoesNotLetTheOthersPileUp) {
    constexpr std::size_t threads = 3;
    constexpr std::size_t room = 4 * threads;
    std::atomic<std::size_t> made = 0;
    std::size_t at_first_use = 0;
    in_order(
        1000, threads,
        [&](std::size_t i) {
            if (i == 0) {
                while (made < room - 1) {
                    std::this_thread::yield();
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(50));  // would be enough for all of them
            }
            ++made;
            return i;
        },
        [&](std::size_t i) { at_first_use = i == 0 ? made.load() : at_first_use; });
    EXPECT_GE(at_first_use, room);
    EXPECT_LE(at_first_use, room + threads);  // some may be made between the taking and the use
    EXPECT_EQ(made, 1000U);
}

TEST(Workers, WhatIsThrownComesOutAtItsPlaceAndEndsTheWork) {
    for (const std::size_t threads : {1U, 3U}) {
        for (const bool by_use : {false, true}) {
            std::vector<std::size_t> used;
            std::atomic<std::size_t> made = 0;
            std::string thrown;
            try {
                in_order(
                    100000, threads,
                    [&](std::size_t i) {
                        if (i == 5 && !by_use) {
                            throw std::runtime_error("five");
                        }
                        ++made;
                        return i;
                    },
                    [&](std::size_t i) {
                        if (i == 5) {
                            throw std::runtime_error("five");
                        }
                        used.push_back(i);
                    });
            } catch (const std::runtime_error& error) {
                thrown = error.what();
            }
            EXPECT_EQ(thrown, "five");
            EXPECT_EQ(used, numbers(5));
            EXPECT_LT(made, 100U);
        }
    }
}

// While this lives, a new thread asks for a stack that no machine has.
class NoThreads {
public:
    NoThreads() {
        ::pthread_getattr_default_np(&usual_);
        pthread_attr_t attributes;
        ::pthread_attr_init(&attributes);
        ::pthread_attr_setstacksize(&attributes, std::size_t{1} << 50U);
        ::pthread_setattr_default_np(&attributes);
        ::pthread_attr_destroy(&attributes);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() {
        ::pthread_setattr_default_np(&usual_);
        ::pthread_attr_destroy(&usual_);
    }

private:
    pthread_attr_t usual_;
};

TEST(Workers, ThatCannotBeStartedLeaveTheWorkToTheCallingThread) {
    const NoThreads none;
    ASSERT_THROW(std::jthread([] {}), std::system_error);
    std::vector<std::size_t> used;
    in_order(
        20, 4,
        [caller = std::this_thread::get_id()](std::size_t i) {
            EXPECT_EQ(std::this_thread::get_id(), caller);
            return i;
        },
        [&](std::size_t i) { used.push_back(i); });
    EXPECT_EQ(used, numbers(20));
}

// The first worker sees to it that few others follow.
TEST(Workers, ThatCannotBeStartedLeaveTheWorkToTheOthers) {
    std::optional<NoThreads> none;
    std::vector<std::size_t> used;
    in_order(
        100, 64,
        [&](std::size_t i) {
            if (i == 0) {
                none.emplace();
            }
            return i;
        },
        [&](std::size_t i) { used.push_back(i); });
    none.reset();
    EXPECT_EQ(used, numbers(100));
}

}  // namespace
}  // namespace velk::test
