// Makes a chosen allocation of this thread fail, and counts what allocations hold. Linking allocations.cpp replaces
// every form of operator new of the whole process.
#pragma once

#include <gtest/gtest.h>

#include <new>
#include <utility>

namespace velk::test {

enum class Failing {
    once,           // the chosen allocation alone, as a passing shortage
    from_there_on,  // it and all that follow, as a lasting one
    never,
};

// Chooses the allocation `after` ones from now.
void begin_failing(Failing how, long after);
// All allocations succeed again; says whether one failed.
bool end_failing();

// Bytes that this thread has allocated and nobody has freed.
long live_bytes();

// One allocation chosen to fail, for one piece of work.
class Shortage {
public:
    Shortage(Failing how, long after) : how_(how), after_(after) {}

    // Whether `work` ended with std::bad_alloc. What else it throws goes on to the caller.
    template <class Work>
    bool strikes(Work work) {
        begin_failing(how_, after_);
        const EndFailing guard{struck_};
        try {
            work();
            return false;
        } catch (const std::bad_alloc&) {
            return true;
        }
    }

    bool struck() const { return struck_; }

private:
    struct EndFailing {
        bool& struck;
        ~EndFailing() { struck = end_failing(); }
    };

    Failing how_;
    long after_;
    bool struck_ = false;
};

// Calls `attempt(shortage)` with the first allocation failing, then the second, and so on until none is left to fail:
// each of them alone, and each with all that follow. What an attempt allocates it has to free. Returns how many
// allocations failed, and writes the number into the report of the test.
template <class Attempt>
long fail_each_allocation(const char* name, Attempt attempt) {
    Shortage none(Failing::never, 0);
    attempt(none);  // what is made once and kept
    long failed = 0;
    for (const Failing how : {Failing::once, Failing::from_there_on}) {
        for (failed = 0;; ++failed) {
            Shortage shortage(how, failed);
            const long before = live_bytes();
            attempt(shortage);
            EXPECT_EQ(live_bytes(), before) << name << " leaks when allocation " << failed << " fails";
            if (!shortage.struck() || testing::Test::HasFailure()) {
                break;
            }
        }
    }
    std::printf("%s: each of %ld allocations failed\n", name, failed);
    return failed;
}

}  // namespace velk::test
