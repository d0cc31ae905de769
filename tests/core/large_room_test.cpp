// Room for very long lists and texts: what is reserved, and which pages the kernel is asked for.
#include "large_room.hpp"

#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace velk::core {
namespace {

constexpr std::size_t large = std::size_t{64} << 20;

// Whether the mapping that holds an address was advised to use large pages, as the kernel tells.
bool is_advised(const void* address) {
    std::ifstream maps("/proc/self/smaps");
    bool inside = false;
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        if (std::sscanf(line.c_str(), "%" SCNxPTR "-%" SCNxPTR " ", &begin, &end) == 2) {
            const auto wanted = reinterpret_cast<std::uintptr_t>(address);
            inside = begin <= wanted && wanted < end;
        } else if (inside && line.starts_with("VmFlags:")) {
            return line.find(" hg") != std::string::npos;
        }
    }
    return false;
}

TEST(ReserveRoom, ReservesAsTheContainerDoes) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{1000}, large}) {
        std::string text;
        reserve_room(text, size);
        EXPECT_GE(text.capacity(), size);
        EXPECT_TRUE(text.empty());
        std::vector<double> numbers;
        reserve_room(numbers, size / sizeof(double));
        EXPECT_EQ(numbers.capacity(), size / sizeof(double));
    }
}

TEST(ReserveRoom, KeepsWhatIsThereAndGivesMemoryThatCanBeFilled) {
    std::vector<char> bytes = {'a', 'b'};
    reserve_room(bytes, large);
    ASSERT_EQ(bytes, (std::vector<char>{'a', 'b'}));
    bytes.resize(large, 'c');
    EXPECT_EQ(bytes[1], 'b');
    EXPECT_EQ(bytes.back(), 'c');
}

TEST(ReserveRoom, AsksForLargePagesForLongListsAlone) {
    if (!std::filesystem::exists("/sys/kernel/mm/transparent_hugepage/enabled")) {
        GTEST_SKIP() << "this kernel has no large pages to ask for";
    }
    constexpr std::size_t longest_kept = std::size_t{32} << 20;  // by the allocator, once it has been freed
    std::vector<char> small;
    reserve_room(small, longest_kept);
    EXPECT_FALSE(is_advised(small.data() + longest_kept / 2));
    std::vector<char> longer;
    reserve_room(longer, longest_kept + 1);
    EXPECT_TRUE(is_advised(longer.data() + longest_kept / 2));
    std::vector<char> list;
    reserve_room(list, large);
    EXPECT_TRUE(is_advised(list.data() + large / 2));
}

}  // namespace
}  // namespace velk::core
