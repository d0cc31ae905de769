// Edits made to a text, and lists of edits that cannot be made.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>

#include <velk/input/amesp/text_edit.hpp>

namespace velk::input::amesp {
namespace {

struct Case {
    const char* name;
    std::vector<TextEdit> edits;
    const char* expected;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class Apply : public testing::TestWithParam<Case> {};

TEST_P(Apply, MakesEveryEditAtItsPlaceInTheOriginal) {
    EXPECT_EQ(apply("0123456789", GetParam().edits), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Edits, Apply,
    testing::Values(Case{"none", {}, "0123456789"}, Case{"insert at the start", {{0, 0, "a"}}, "a0123456789"},
                    Case{"insert at the end", {{10, 0, "a"}}, "0123456789a"},
                    Case{"replace all", {{0, 10, "abc"}}, "abc"}, Case{"remove all", {{0, 10, ""}}, ""},
                    Case{"two that touch", {{2, 2, "a"}, {4, 1, "b"}}, "01ab56789"},
                    Case{"two at one offset, in order", {{3, 0, "a"}, {3, 0, "b"}}, "012ab3456789"},
                    Case{"insert, then replace, at one offset", {{3, 0, "a"}, {3, 2, "b"}}, "012ab56789"},
                    Case{"at both ends", {{0, 1, ""}, {9, 1, "z"}}, "12345678z"}),
    [](const auto& each) { return "Case" + std::to_string(each.index); });

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

class ApplyRefused : public testing::TestWithParam<Case> {};

TEST_P(ApplyRefused, ThrowsInvalidArgument) {
    EXPECT_THROW(static_cast<void>(apply("0123456789", GetParam().edits)), std::invalid_argument);
}

INSTANTIATE_TEST_SUITE_P(Edits, ApplyRefused,
                         testing::Values(Case{"after the end", {{11, 0, ""}}, nullptr},
                                         Case{"longer than the text", {{9, 2, ""}}, nullptr},
                                         Case{"not sorted", {{5, 1, ""}, {4, 1, ""}}, nullptr},
                                         Case{"overlapping", {{2, 3, ""}, {4, 1, ""}}, nullptr},
                                         Case{"length past all numbers", {{1, most, ""}}, nullptr},
                                         Case{"offset past all numbers", {{most, 1, ""}}, nullptr},
                                         Case{"replace, then insert inside", {{3, 2, "b"}, {4, 0, "a"}}, nullptr}),
                         [](const auto& each) { return "Case" + std::to_string(each.index); });

TEST(ApplyToAnything, IsFoundWithoutItsNamespace) {
    std::string text = "ab";
    const std::string_view view = text;
    std::vector<TextEdit> edits = {{1, 0, "x"}};
    const std::vector<TextEdit>& list = edits;
    EXPECT_EQ(apply(text, edits), "axb");
    EXPECT_EQ(apply(text, list), "axb");
    EXPECT_EQ(apply(view, edits), "axb");
    EXPECT_EQ(apply("ab", edits), "axb");
    EXPECT_EQ(apply("ab", std::vector<TextEdit>{{1, 0, "x"}}), "axb");
}

TEST(ApplyToNothing, TakesInsertionsOnly) {
    EXPECT_EQ(apply("", {{0, 0, "a"}, {0, 0, "b"}}), "ab");
    EXPECT_THROW(static_cast<void>(apply("", {{0, 1, ""}})), std::invalid_argument);
}

TEST(ApplyToAnything, TakesBytesOfAllKinds) {
    const std::string text("a\0\xFF\r\n", 5);
    EXPECT_EQ(apply(text, {{1, 1, std::string("\0\0", 2)}}), std::string("a\0\0\xFF\r\n", 6));
}

}  // namespace
}  // namespace velk::input::amesp
