// Slips of the hand.
#include "diagnostics/slips.hpp"

#include <gtest/gtest.h>

namespace velk::input::amesp {
namespace {

TEST(Slips, AreOneLetterMissingDoubledOrWrongOrTwoTransposed) {
    for (const char* const typed : {"axcyc", "mxcyc", "maxcy", "mmaxcyc", "maxxcyc", "maxcycc", "naxcyc", "maxcuc",
                                    "maxcyx", "amxcyc", "maxccy", "maxyc", "mxacyc"}) {
        EXPECT_TRUE(is_one_slip(typed, "maxcyc")) << typed;
    }
    EXPECT_TRUE(is_one_slip("b3lpy", "b3lyp"));
    EXPECT_TRUE(is_one_slip("", "a"));
}

TEST(Slips, AreNeverMore) {
    for (const char* const typed : {"maxcyc", "maxcyce", "emaxcyc", "maxecyc", "maxc", "mxcy", "mxacy", "maxcycle",
                                    "naxcuc", "amxccy", "xamcyc", "maxcbx", "maxcxb", "", "cycmax"}) {
        EXPECT_FALSE(is_one_slip(typed, "maxcyc")) << typed;
    }
    EXPECT_FALSE(is_one_slip("", ""));
    EXPECT_FALSE(is_one_slip("ab", "ba c"));
}

TEST(Slips, TouchNoDigitAndNoSign) {
    EXPECT_FALSE(is_one_slip("b2lyp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("blyp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("bblyp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("b33lyp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("3blyp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("bl3yp", "b3lyp"));
    EXPECT_FALSE(is_one_slip("a--b", "a-b"));
    EXPECT_FALSE(is_one_slip("ab", "a-b"));
    EXPECT_FALSE(is_one_slip("-ab", "a-b"));
    EXPECT_FALSE(is_one_slip("ab-", "a-b"));
    EXPECT_FALSE(is_one_slip("axb", "a-b"));
    EXPECT_FALSE(is_one_slip("a-b", "axb"));
}

}  // namespace
}  // namespace velk::input::amesp
