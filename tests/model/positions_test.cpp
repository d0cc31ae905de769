// Columns in other units than bytes, and places in a text.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/positions.hpp>

namespace velk::input::amesp {
namespace {

using namespace std::string_view_literals;

struct Character {
    const char* name;
    std::string_view bytes;
    std::uint64_t utf8;
    std::uint64_t utf16;
    std::uint64_t utf32;
};

const std::vector<Character> characters = {
    {"Ascii", "a", 1, 1, 1},
    {"Nul", "\0"sv, 1, 1, 1},
    {"Delete", "\x7F", 1, 1, 1},
    {"FirstOfTwoBytes", "\xC2\x80", 2, 1, 1},
    {"LastOfTwoBytes", "\xDF\xBF", 2, 1, 1},
    {"FirstOfThreeBytes", "\xE0\xA0\x80", 3, 1, 1},
    {"LastBeforeSurrogates", "\xED\x9F\xBF", 3, 1, 1},
    {"FirstAfterSurrogates", "\xEE\x80\x80", 3, 1, 1},
    {"LastOfThreeBytes", "\xEF\xBF\xBF", 3, 1, 1},
    {"FirstOfFourBytes", "\xF0\x90\x80\x80", 4, 2, 1},
    {"LastOfFourBytes", "\xF4\x8F\xBF\xBF", 4, 2, 1},
    // What is no character counts as U+FFFD, byte by byte.
    {"LoneContinuation", "\x80", 3, 1, 1},
    {"TwoBytesTooLong", "\xC0\x80", 6, 2, 2},
    {"LongestTwoBytesTooLong", "\xC1\xBF", 6, 2, 2},
    {"ThreeBytesTooLong", "\xE0\x9F\xBF", 9, 3, 3},
    {"FirstSurrogate", "\xED\xA0\x80", 9, 3, 3},
    {"LastSurrogate", "\xED\xBF\xBF", 9, 3, 3},
    {"FourBytesTooLong", "\xF0\x8F\xBF\xBF", 12, 4, 4},
    {"PastUnicode", "\xF4\x90\x80\x80", 12, 4, 4},
    {"NoFirstByte", "\xF5\x80\x80\x80", 12, 4, 4},
    {"NeverAByte", "\xFF", 3, 1, 1},
    {"CutShort", "\xF0\x9F\x98", 9, 3, 3},
    {"Interrupted", "\xE2\x82z", 7, 3, 3},
};

class Columns : public testing::TestWithParam<Character> {};

TEST_P(Columns, CountTheUnitsOfACharacter) {
    const Character& c = GetParam();
    const std::string line = std::string(c.bytes) + "z";
    const std::uint64_t after = c.bytes.size() + 1;
    EXPECT_EQ(column_from_bytes(line, after, ColumnUnit::byte), after);
    EXPECT_EQ(column_from_bytes(line, after, ColumnUnit::utf8), c.utf8 + 1);
    EXPECT_EQ(column_from_bytes(line, after, ColumnUnit::utf16), c.utf16 + 1);
    EXPECT_EQ(column_from_bytes(line, after, ColumnUnit::utf32), c.utf32 + 1);
    EXPECT_EQ(column_to_bytes(line, after, ColumnUnit::byte), after);
    EXPECT_EQ(column_to_bytes(line, c.utf8 + 1, ColumnUnit::utf8), after);
    EXPECT_EQ(column_to_bytes(line, c.utf16 + 1, ColumnUnit::utf16), after);
    EXPECT_EQ(column_to_bytes(line, c.utf32 + 1, ColumnUnit::utf32), after);
}

TEST_P(Columns, GoToTheEndOfALineAndNoFurther) {
    const Character& c = GetParam();
    const std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    for (const std::uint64_t past : {c.bytes.size() + 2, std::size_t{1000}, static_cast<std::size_t>(most)}) {
        EXPECT_EQ(column_from_bytes(c.bytes, past, ColumnUnit::utf8), c.utf8 + 1);
        EXPECT_EQ(column_from_bytes(c.bytes, past, ColumnUnit::utf16), c.utf16 + 1);
    }
    EXPECT_EQ(column_to_bytes(c.bytes, most, ColumnUnit::utf16), c.bytes.size() + 1);
    EXPECT_EQ(column_to_bytes(c.bytes, most, ColumnUnit::byte), c.bytes.size() + 1);
}

TEST(ColumnsInBytes, WithinACharacterAreThatOfItsFirstByte) {
    const std::string line =
        "a\u00e4\u20ac\U0001F600\x80\xE2\x82"
        "b";
    const std::uint64_t expected[] = {1, 2, 2, 4, 4, 4, 7, 7, 7, 7, 11, 12, 13, 14, 15, 15};
    for (std::uint64_t column = 1; column <= std::size(expected); ++column) {
        EXPECT_EQ(column_to_bytes(line, column, ColumnUnit::byte), expected[column - 1]) << column;
        EXPECT_EQ(column_from_bytes(line, column, ColumnUnit::byte), expected[column - 1]) << column;
    }
    EXPECT_EQ(column_to_bytes(line, 0, ColumnUnit::byte), 1U);
}

INSTANTIATE_TEST_SUITE_P(Characters, Columns, testing::ValuesIn(characters),
                         [](const auto& each) { return each.param.name; });

TEST(ColumnsOfALine, WithinACharacterAreItsFirst) {
    const std::string_view line = "a\xF0\x9F\x98\x80z";
    for (std::uint64_t inside = 2; inside < 6; ++inside) {
        EXPECT_EQ(column_from_bytes(line, inside, ColumnUnit::utf16), 2);
    }
    EXPECT_EQ(column_from_bytes(line, 6, ColumnUnit::utf16), 4);
    EXPECT_EQ(column_to_bytes(line, 3, ColumnUnit::utf16), 2);
    EXPECT_EQ(column_to_bytes(line, 4, ColumnUnit::utf16), 6);
    EXPECT_EQ(column_to_bytes(line, 3, ColumnUnit::utf32), 6);
}

TEST(ColumnsOfALine, BelowTheFirstAreTheFirst) {
    EXPECT_EQ(column_from_bytes("abc", 0, ColumnUnit::utf16), 1);
    EXPECT_EQ(column_to_bytes("abc", 0, ColumnUnit::utf16), 1);
    EXPECT_EQ(column_to_bytes("", 5, ColumnUnit::utf32), 1);
}

struct Lines {
    const char* name;
    std::string_view text;
    LineEnds ends;
    std::vector<std::string_view> lines;
    std::vector<std::uint64_t> begins;
};

class PositionsIn : public testing::TestWithParam<Lines> {};

TEST_P(PositionsIn, ATextAreThoseOfItsLines) {
    const auto& [name, text, ends, lines, begins] = GetParam();
    const TextPositions positions(text, ends);
    ASSERT_EQ(positions.line_count(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(positions.line(i + 1), lines[i]) << i;
        const Position end{i + 1, lines[i].size() + 1};
        EXPECT_EQ(positions.position_of(begins[i]), (Position{i + 1, 1})) << i;
        EXPECT_EQ(positions.position_of(begins[i] + lines[i].size()), end) << i;
        EXPECT_EQ(positions.offset_of({i + 1, 1}), begins[i]) << i;
        EXPECT_EQ(positions.offset_of({i + 1, 1000}), begins[i] + lines[i].size()) << i;
        const std::uint64_t next = i + 1 < begins.size() ? begins[i + 1] : text.size() + 2;
        for (std::uint64_t in_line_end = begins[i] + lines[i].size(); in_line_end < next; ++in_line_end) {
            EXPECT_EQ(positions.position_of(in_line_end), end) << i;
        }
    }
    EXPECT_EQ(positions.line(0), "");
    EXPECT_EQ(positions.line(lines.size() + 1), "");
    EXPECT_EQ(positions.offset_of({lines.size() + 1, 1}), text.size());
    EXPECT_EQ(positions.offset_of({0, 1}), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PositionsIn,
    testing::Values(Lines{"Empty", "", LineEnds::format, {""}, {0}},
                    Lines{"NoLineEnd", "ab", LineEnds::format, {"ab"}, {0}},
                    Lines{"LineFeeds", "ab\n\nc\n", LineEnds::format, {"ab", "", "c", ""}, {0, 3, 4, 6}},
                    Lines{"CarriageReturns", "ab\r\n\r\nc", LineEnds::format, {"ab", "", "c"}, {0, 4, 6}},
                    Lines{"LoneCarriageReturnInTheFormat", "a\rb\r\nc\r", LineEnds::format, {"a\rb", "c\r"}, {0, 5}},
                    Lines{"LoneCarriageReturnInAnEditor",
                          "a\rb\r\r\nc\r",
                          LineEnds::editor,
                          {"a", "b", "", "c", ""},
                          {0, 2, 4, 6, 8}},
                    Lines{"LineFeedFirst", "\n\ra", LineEnds::editor, {"", "", "a"}, {0, 1, 2}}),
    [](const auto& each) { return each.param.name; });

TEST(Positions, CountInTheUnitAskedFor) {
    const TextPositions positions("a\n\xC3\xA4\xF0\x9F\x98\x80z\n");
    EXPECT_EQ(positions.position_of(8, ColumnUnit::utf16), (Position{2, 4}));
    EXPECT_EQ(positions.offset_of({2, 4}, ColumnUnit::utf16), 8);
    EXPECT_EQ(positions.position_of(8, ColumnUnit::utf32), (Position{2, 3}));
    EXPECT_EQ(positions.offset_of({2, 3}, ColumnUnit::utf32), 8);
}

}  // namespace
}  // namespace velk::input::amesp
