// The map that keeps the order of insertion.
#include <velk/input/amesp/string_map.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/at_page_end.hpp"

namespace velk::input::amesp {
namespace {

using Map = StringMap<int>;

std::vector<std::string> keys(const Map& map) {
    std::vector<std::string> result;
    for (const auto& [key, value] : map) {
        result.push_back(key);
    }
    return result;
}

TEST(StringMap, IteratesInTheOrderOfFirstInsertion) {
    Map map;
    map["z"] = 1;
    map["a"] = 2;
    map.emplace("m", 3);
    map["z"] = 4;
    EXPECT_FALSE(map.insert_or_assign("a", 5).second);
    EXPECT_TRUE(map.insert_or_assign("b", 6).second);
    EXPECT_THAT(keys(map), testing::ElementsAre("z", "a", "m", "b"));
    EXPECT_EQ(map.at("z"), 4);
    EXPECT_EQ(map.at("a"), 5);
    EXPECT_EQ(map.at("b"), 6);
}

TEST(StringMap, KeepsTheFirstValueThatIsEmplaced) {
    Map map;
    EXPECT_TRUE(map.emplace("a", 1).second);
    EXPECT_FALSE(map.emplace("a", 2).second);
    EXPECT_EQ(map["a"], 1);
}

TEST(StringMap, FindsExactKeysOnly) {
    Map map{{"a", 1}, {"", 2}};
    EXPECT_EQ(map.find("a")->second, 1);
    EXPECT_EQ(map.find("")->second, 2);
    EXPECT_EQ(map.find("A"), map.end());
    EXPECT_TRUE(map.contains("a"));
    EXPECT_EQ(map.count("a"), 1U);
    EXPECT_EQ(map.count("b"), 0U);
    EXPECT_THROW(map.at("b"), std::out_of_range);
    EXPECT_EQ(map.size(), 2U);
}

// One step of the map's own hash, for keys made of whole words.
std::uint64_t mixed(std::uint64_t state, std::uint64_t word) {
    const std::uint64_t product = (state ^ word) * 0x9e3779b97f4a7c15U;
    return product ^ product >> 29U;
}

std::string key_of(std::uint64_t first, std::uint64_t second) {
    std::string key(16, '\0');
    std::memcpy(key.data(), &first, sizeof first);
    std::memcpy(key.data() + sizeof first, &second, sizeof second);
    return key;
}

TEST(StringMap, KeepsKeysApartWhoseHashesAreEqual) {
    const std::uint64_t size = 16;
    const std::string one = key_of(1, 1);
    const std::string other = key_of(2, 1 ^ mixed(size, 1) ^ mixed(size, 2));
    Map map{{one, 1}};
    EXPECT_FALSE(map.contains(other));
    map.emplace(other, 2);
    EXPECT_EQ(map.at(one), 1);
    EXPECT_EQ(map.at(other), 2);
}

// Short keys are compared as words, long ones byte for byte; either way a look-up reads the key and nothing after it.
TEST(StringMap, KeepsKeysOfEverySizeApartThatDifferInOneByte) {
    std::vector<std::string> all;
    for (std::size_t size = 0; size <= 40; ++size) {
        all.emplace_back(size, 'a');
        for (std::size_t place = 0; place < size; ++place) {
            all.emplace_back(size, 'a');
            all.back()[place] = 'b';
        }
    }
    Map map;
    int number = 0;
    for (const std::string& key : all) {
        const test::AtPageEnd last(key);
        EXPECT_FALSE(map.contains(last.view())) << key;
        EXPECT_TRUE(map.emplace(last.view(), number++).second) << key;
    }
    EXPECT_EQ(map.size(), all.size());
    for (int i = 0; i < number; ++i) {
        const std::string& key = all[static_cast<std::size_t>(i)];
        EXPECT_EQ(map.at(test::AtPageEnd(key).view()), i) << key;
        EXPECT_FALSE(map.contains(key + '\0')) << key;
    }
}

TEST(StringMap, IsWalkedThroughToChangeItsValuesInPlace) {
    Map map{{"a", 1}, {"b", 2}};
    for (auto& [key, value] : map) {
        value *= 10;
    }
    EXPECT_EQ(map.at("a"), 10);
    EXPECT_EQ(map.at("b"), 20);
    EXPECT_EQ(map.cbegin()->first, "a");
    EXPECT_EQ(std::prev(map.cend())->first, "b");
    EXPECT_EQ(std::distance(map.cbegin(), map.cend()), 2);
    map.find("b")->second = 3;
    EXPECT_EQ(std::as_const(map).find("b")->second, 3);
    EXPECT_EQ(std::as_const(map).find("c"), map.cend());
}

TEST(StringMap, InsertsWhatIsNotThereYet) {
    Map map;
    const auto [first, is_new] = map.insert({"a", 1});
    EXPECT_TRUE(is_new);
    EXPECT_EQ(first->first, "a");
    EXPECT_EQ(first->second, 1);
    const auto [second, is_new_again] = map.insert({"a", 2});
    EXPECT_FALSE(is_new_again);
    EXPECT_EQ(second, first);
    EXPECT_EQ(first->second, 1);
    EXPECT_EQ(map.emplace("b", 3).first->first, "b");
    EXPECT_EQ(map.insert_or_assign("a", 4).first, first);
    EXPECT_EQ(first->second, 4);
    EXPECT_EQ(map["c"], 0);
    EXPECT_EQ(map.size(), 3U);
}

TEST(StringMap, SaysWhichKeyIsNotThere) {
    const Map map{{"a", 1}};
    EXPECT_EQ(map.at("a"), 1);
    try {
        map.at("b");
        ADD_FAILURE() << "no failure";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "StringMap: no key 'b'");
    }
}

TEST(StringMap, SwapsAllThatItHolds) {
    Map one{{"a", 1}};
    Map other{{"b", 2}, {"c", 3}};
    one.swap(other);
    EXPECT_THAT(keys(one), testing::ElementsAre("b", "c"));
    EXPECT_THAT(keys(other), testing::ElementsAre("a"));
    EXPECT_TRUE(one.contains("c"));
    EXPECT_FALSE(one.contains("a"));
    EXPECT_TRUE(other.contains("a"));
}

TEST(StringMap, KeepsReferencesWhileItGrows) {
    Map map;
    int& first = map["first"];
    for (int i = 0; i < 10000; ++i) {
        map[std::to_string(i)] = i;
    }
    first = 7;
    EXPECT_EQ(map.at("first"), 7);
    EXPECT_EQ(map.at("9999"), 9999);
}

TEST(StringMap, CopiesAndMovesAreIndependentOfTheirSource) {
    Map map{{"a", 1}, {"b", 2}};
    Map copy = map;
    copy["a"] = 9;
    copy["c"] = 3;
    EXPECT_EQ(map.at("a"), 1);
    EXPECT_FALSE(map.contains("c"));
    const Map moved = std::move(copy);
    EXPECT_EQ(moved.at("a"), 9);
    EXPECT_THAT(keys(moved), testing::ElementsAre("a", "b", "c"));
    map = moved;
    EXPECT_EQ(map, moved);
    Map& same = map;
    map = same;
    EXPECT_EQ(map, moved);
    map.clear();
    EXPECT_TRUE(map.empty());
    EXPECT_FALSE(map.contains("a"));
}

TEST(StringMap, EqualsAMapWithTheSamePairsInAnyOrder) {
    EXPECT_EQ((Map{{"a", 1}, {"b", 2}}), (Map{{"b", 2}, {"a", 1}}));
    EXPECT_NE((Map{{"a", 1}}), (Map{{"a", 2}}));
    EXPECT_NE((Map{{"a", 1}}), (Map{{"b", 1}}));
    EXPECT_NE((Map{{"a", 1}}), (Map{{"a", 1}, {"b", 1}}));
}

// Wherever the four keys of a full table stand, a walk from any place comes to a free one.
TEST(StringMap, FindsNoNameThatIsNotThereInManySmallMaps) {
    for (int map_number = 0; map_number < 200; ++map_number) {
        StringMap<int> map;
        for (int key = 0; key < 4; ++key) {
            map.emplace(std::to_string(map_number) + "-" + std::to_string(key), key);
        }
        for (int other = 0; other < 20; ++other) {
            EXPECT_FALSE(map.contains(std::to_string(other) + "+" + std::to_string(map_number)));
        }
    }
}

}  // namespace
}  // namespace velk::input::amesp
