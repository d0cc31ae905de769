// The table of codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include <velk/input/amesp/codes.hpp>

namespace velk::input::amesp {
namespace {

TEST(Codes, StandInTheOrderOfTheirBytesEachOnce) {
    const auto all = all_codes();
    ASSERT_FALSE(all.empty());
    for (std::size_t i = 1; i < all.size(); ++i) {
        EXPECT_LT(all[i - 1].code, all[i].code);
    }
}

TEST(Codes, AreFoundByTheirName) {
    for (const CodeInfo& info : all_codes()) {
        EXPECT_EQ(find_code(info.code), &info) << info.code;
        EXPECT_EQ(find_code(std::string(info.code) + "x"), nullptr) << info.code;
        EXPECT_EQ(find_code(info.code.substr(0, info.code.size() - 1)), nullptr) << info.code;
    }
    EXPECT_EQ(find_code(""), nullptr);
    EXPECT_EQ(find_code("zzz"), nullptr);
}

TEST(Codes, SayWhatTheyMeanAndWhatToDo) {
    for (const CodeInfo& info : all_codes()) {
        EXPECT_TRUE(info.meaning.ends_with('.') || info.meaning.ends_with(')')) << info.code;
        EXPECT_TRUE(info.remedy.ends_with('.')) << info.code;
        EXPECT_EQ(info.bad_example.empty(), info.good_example.empty()) << info.code;
        EXPECT_TRUE(info.severity == Severity::warning || info.severity == Severity::error) << info.code;
    }
}

TEST(Codes, HaveTheSeverityThatTheirFindingsHave) {
    EXPECT_EQ(find_code(codes::missing_method_line)->severity, Severity::error);
    EXPECT_EQ(find_code(codes::unknown_entry)->severity, Severity::warning);
    EXPECT_EQ(find_code(codes::inp::dropped_words)->severity, Severity::error);
    EXPECT_EQ(find_code(codes::inp::rounded)->severity, Severity::warning);
}

}  // namespace
}  // namespace velk::input::amesp
