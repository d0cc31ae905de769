// Trimming and splitting of text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <velk/core/text.hpp>
#include <velk/core/text_view.hpp>

namespace velk::core::text {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Trim, RemovesWhiteSpaceAtTheEndsOnly) {
    EXPECT_EQ(trim("  a \t b\r\n"), "a \t b");
    EXPECT_EQ(trim("\v\fx\f\v"), "x");
    EXPECT_EQ(trim("x"), "x");
}

TEST(Trim, LeavesNothingOfABlankText) {
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim(" \t\r\n"), "");
}

TEST(Trim, KeepsNulAndHighBytes) {
    EXPECT_EQ(trim(" \0x\0 "s), "\0x\0"s);
    EXPECT_EQ(trim(" \xa0\xff\x85 "), "\xa0\xff\x85");
}

TEST(SplitLines, KeepsEmptyLinesInTheMiddle) {
    EXPECT_THAT(split_lines("a\n\nb"), ElementsAre("a", "", "b"));
}

TEST(SplitLines, GivesNoLineForEmptyTextAndNoneAfterTheLastLineFeed) {
    EXPECT_THAT(split_lines(""), IsEmpty());
    EXPECT_THAT(split_lines("\n"), ElementsAre(""));
    EXPECT_THAT(split_lines("a\n"), ElementsAre("a"));
    EXPECT_THAT(split_lines("a\n\n"), ElementsAre("a", ""));
}

TEST(SplitLines, TakesOneCarriageReturnBeforeALineFeedForPartOfTheLineEnd) {
    EXPECT_THAT(split_lines("end\r\nb\r\r\nc\r"), ElementsAre("end", "b\r", "c\r"));
    EXPECT_THAT(split_lines("a\rb\n"), ElementsAre("a\rb"));
}

TEST(SplitLines, KeepsNulBytes) {
    EXPECT_THAT(split_lines("a\0b\n\0"s), ElementsAre("a\0b"s, "\0"s));
}

TEST(SplitWhitespace, GivesTheWordsBetweenRunsOfWhiteSpace) {
    EXPECT_THAT(split_whitespace(" a \t bc\rd\ve\ff\n"), ElementsAre("a", "bc", "d", "e", "f"));
    EXPECT_THAT(split_whitespace(""), IsEmpty());
    EXPECT_THAT(split_whitespace(" \t "), IsEmpty());
    EXPECT_THAT(split_whitespace("a\0b \xa0"s), ElementsAre("a\0b"s, "\xa0"));
}

TEST(Views, AgreeWithTheOwningForms) {
    const std::string text = " a\tb \r\n\v c\f\n\n d";
    std::string_view rest = text;
    std::vector<std::string> lines;
    for (std::string_view line; take_line(rest, line);) {
        lines.emplace_back(line);
    }
    EXPECT_EQ(lines, split_lines(text));
    EXPECT_EQ(trim_view(text), trim(text));
}

}  // namespace
}  // namespace velk::core::text
