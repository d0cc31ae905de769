// Edits made one after the other are those of one list.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "model/compose_edits.hpp"

namespace velk::input::amesp {
namespace {

// Sorted edits that do not overlap, of a text of that size.
std::vector<TextEdit> random_edits(std::mt19937& random, std::size_t size, char letter) {
    std::vector<TextEdit> edits;
    std::size_t at = 0;
    for (std::size_t n = random() % 5; n > 0; --n) {
        at += random() % 4;
        if (at > size) {
            break;
        }
        const std::size_t length = std::min<std::size_t>(random() % 4, size - at);
        edits.push_back({at, length, std::string(random() % 3, letter)});
        at += length;
    }
    return edits;
}

TEST(Compose, GivesWhatBothListsGiveOneAfterTheOther) {
    std::mt19937 random(11);
    for (int i = 0; i < 200'000; ++i) {
        std::string original;
        for (std::size_t n = random() % 12; n > 0; --n) {
            original += static_cast<char>('a' + random() % 26);
        }
        const std::vector<TextEdit> first = random_edits(random, original.size(), 'X');
        const std::string between = apply(original, first);
        const std::vector<TextEdit> second = random_edits(random, between.size(), 'Y');
        const std::vector<TextEdit> both = compose(first, second);
        ASSERT_EQ(apply(original, both), apply(between, second)) << original << " " << between;
        for (std::size_t k = 1; k < both.size(); ++k) {
            ASSERT_LT(both[k - 1].offset + both[k - 1].length, both[k].offset) << "edits that touch are one";
        }
    }
}

TEST(Compose, OfNothingIsTheOtherList) {
    const std::vector<TextEdit> edits = {{1, 2, "x"}, {5, 0, "y"}};
    EXPECT_EQ(compose(edits, {}), edits);
    EXPECT_EQ(compose({}, edits), edits);
    EXPECT_TRUE(compose({}, {}).empty());
}

TEST(Compose, TakesFromTheOriginalWhatNoEditPut) {
    // "abcdef" -> "aXXef" -> "aef": what the first list put is gone, and so is what it took.
    EXPECT_EQ(compose({{1, 3, "XX"}}, {{1, 2, ""}}), (std::vector<TextEdit>{{1, 3, ""}}));
    // An edit of what stands after an insertion.
    EXPECT_EQ(compose({{1, 0, "XX"}}, {{5, 1, "Y"}}), (std::vector<TextEdit>{{1, 0, "XX"}, {3, 1, "Y"}}));
}

}  // namespace
}  // namespace velk::input::amesp
