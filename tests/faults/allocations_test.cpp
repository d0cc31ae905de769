// The failing allocations themselves: a fault that never strikes would prove nothing.
#include "faults/allocations.hpp"

#include <functional>
#include <string>

namespace velk::test {
namespace {

struct alignas(64) Wide {
    char bytes[64] = {};
};

struct Form {
    const char* name;
    std::function<void*()> make;
    std::function<void(void*)> free;
};

void* checked(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

const Form forms[] = {
    {"one", [] { return ::operator new(8); }, [](void* memory) { ::operator delete(memory); }},
    {"array", [] { return ::operator new[](8); }, [](void* memory) { ::operator delete[](memory); }},
    {"one, nothrow", [] { return checked(::operator new(8, std::nothrow)); },
     [](void* memory) { ::operator delete(memory, std::nothrow); }},
    {"array, nothrow", [] { return checked(::operator new[](8, std::nothrow)); },
     [](void* memory) { ::operator delete[](memory, std::nothrow); }},
    {"aligned", []() -> void* { return new Wide; }, [](void* memory) { delete static_cast<Wide*>(memory); }},
    {"aligned array", []() -> void* { return new Wide[2]; }, [](void* memory) { delete[] static_cast<Wide*>(memory); }},
    {"aligned, nothrow", [] { return checked(new (std::nothrow) Wide); },
     [](void* memory) { delete static_cast<Wide*>(memory); }},
    {"aligned array, nothrow", [] { return checked(new (std::nothrow) Wide[2]); },
     [](void* memory) { delete[] static_cast<Wide*>(memory); }},
};

TEST(AllocationFaults, StrikeEveryFormOfNewAndSeeWhatItHolds) {
    for (const Form& form : forms) {
        const long before = live_bytes();
        void* memory = nullptr;
        Shortage shortage(Failing::once, 0);
        EXPECT_TRUE(shortage.strikes([&] { memory = form.make(); })) << form.name;
        EXPECT_EQ(live_bytes(), before) << form.name;
        memory = form.make();
        EXPECT_GT(live_bytes(), before) << form.name;
        form.free(memory);
        EXPECT_EQ(live_bytes(), before) << form.name;
    }
}

TEST(AllocationFaults, StrikeTheChosenAllocationAloneOrAllFromThereOn) {
    for (const auto& [how, expected] : {std::pair(Failing::once, 1), std::pair(Failing::from_there_on, 3)}) {
        Shortage shortage(how, 2);
        int failures = 0;
        EXPECT_FALSE(shortage.strikes([&] {
            for (int i = 0; i < 5; ++i) {
                void* const memory = ::operator new(8, std::nothrow);
                failures += memory == nullptr ? 1 : 0;
                ::operator delete(memory);
            }
        }));
        EXPECT_EQ(failures, expected);
        EXPECT_TRUE(shortage.struck());
    }
}

}  // namespace
}  // namespace velk::test
