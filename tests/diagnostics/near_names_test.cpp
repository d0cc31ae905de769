// The search for near names, held against a comparison with every known name.
#include "diagnostics/near_names.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::size_t always = static_cast<std::size_t>(-1);

// Insertions, deletions, substitutions and swaps of neighbours, by the definition.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::vector<std::size_t>> cost(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            std::size_t& here = cost[i][j];
            here = i + j;
            if (i > 0 && j > 0) {
                here = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            }
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                here = std::min(here, cost[i - 2][j - 2] + 1);
            }
        }
    }
    return cost[a.size()][b.size()];
}

// The nearest of `known` that are at most `most` away from `name`.
std::vector<std::string> nearest(const std::vector<std::string>& known, const std::string& name, std::size_t most) {
    std::vector<std::string> found;
    for (const std::string& candidate : known) {
        const std::size_t d = distance(name, candidate);
        if (d < most) {
            most = d;
            found.clear();
        }
        if (d == most) {
            found.push_back(candidate);
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::string random_name(std::mt19937& random, std::size_t longest) {
    std::string name(1 + random() % longest, 'a');
    for (char& c : name) {
        c = static_cast<char>('a' + random() % 4);
    }
    return name;
}

TEST(NearNames, AreThoseOfAComparisonWithEveryKnownName) {
    std::mt19937 random(1);
    for (int round = 0; round < 40; ++round) {
        std::vector<std::string> known;
        for (int i = 0; i < 60; ++i) {
            known.push_back(random_name(random, 12));
        }
        NearNames compared(known, always);
        NearNames looked_up(known, 0);
        for (int i = 0; i < 60; ++i) {
            const std::string name = random_name(random, 14);
            const auto near = ElementsAreArray(nearest(known, name, name.size() < 6 ? 1 : 2));
            EXPECT_THAT(compared.nearest(name), near) << name;
            EXPECT_THAT(looked_up.nearest(name), near) << name;
        }
    }
}

TEST(NearNames, TakeOneEditOfEachKind) {
    for (const std::size_t comparisons : {std::size_t{0}, always}) {
        NearNames names({"maxcyc", "conv", "guess"}, comparisons);
        for (const char* const name : {"maxcycc", "axcyc", "naxcyc", "mxacyc", "maxcyc"}) {
            EXPECT_THAT(names.nearest(name), ElementsAre("maxcyc")) << name;
        }
        EXPECT_THAT(names.nearest("con"), ElementsAre("conv"));
        EXPECT_THAT(names.nearest("co"), IsEmpty());
        EXPECT_THAT(names.nearest(""), IsEmpty());
    }
}

TEST(NearNames, AreTheSameOnceTheyAreLookedUp) {
    NearNames names({"abcdefghi", "12345", "1234567890123"}, 1);  // none of the others is nearly as long
    for (int i = 0; i < 3; ++i) {
        EXPECT_THAT(names.nearest("abcdefg12"), ElementsAre("abcdefghi"));
        EXPECT_THAT(names.nearest("abcdef123"), IsEmpty());
        EXPECT_THAT(names.nearest("12354"), ElementsAre("12345"));
        EXPECT_THAT(names.nearest("12336"), IsEmpty());
    }
}

TEST(NearNames, AreNotLookedForWhereANameIsTooLong) {
    for (const std::size_t comparisons : {std::size_t{0}, always}) {
        const std::string longest(48, 'a');
        NearNames names({longest + "bb", longest + "bbb"}, comparisons);
        EXPECT_THAT(names.nearest(longest), ElementsAre(longest + "bb"));
        EXPECT_THAT(names.nearest(longest + "b"), IsEmpty());
    }
}

TEST(NearNames, AreNoneWhereNoneAreKnown) {
    for (const std::size_t comparisons : {std::size_t{0}, always}) {
        NearNames none({}, comparisons);
        EXPECT_THAT(none.nearest("name"), IsEmpty());
        NearNames twice({"b", "a", "a", "bb"}, comparisons);
        EXPECT_THAT(twice.nearest("c"), ElementsAre("a", "b"));
    }
}

}  // namespace
}  // namespace velk::input::amesp
