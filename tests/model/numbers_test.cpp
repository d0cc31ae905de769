// Numbers in text, against the C library in its classic locale.
#include "model/numbers.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <random>
#include <string_view>

#include "support/at_page_end.hpp"
#include "support/locale_guard.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;

// The rule, as plainly as it can be written. The tests run in the classic locale unless they say otherwise.
std::optional<double> plain_real(std::string text) {
    const char* const blanks = " \t\n\v\f\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string::npos) {
        return std::nullopt;
    }
    text = text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
    for (char& c : text) {
        c = c == 'D' ? 'E' : (c == 'd' ? 'e' : c);
    }
    char* end = nullptr;
    errno = 0;
    const double value = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || end != text.c_str() + text.size() || errno == ERANGE) {
        return std::nullopt;
    }
    return value;
}

void expect_same_real(const std::string& text) {
    const std::optional<double> expected = plain_real(text);
    const std::optional<double> actual = read_real(text);
    ASSERT_EQ(actual.has_value(), expected.has_value()) << "'" << text << "'";
    if (expected && !(std::isnan(*expected) && std::isnan(*actual))) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(*actual), std::bit_cast<std::uint64_t>(*expected)) << text;
    }
}

const std::string real_texts[] = {
    "0",
    "-0",
    "+0",
    "0.0",
    "-0.0",
    "0.00000000000000000000000000",
    "-000000000000000000000000.0",
    "1",
    "-1.5",
    "+1.5",
    "1.",
    ".5",
    "-.5",
    "+.5",
    ".",
    "-",
    "+",
    "+-1",
    "-+1",
    "--1",
    "++1",
    "1e5",
    "1E5",
    "1d5",
    "1D5",
    "1.5D-3",
    "2.0d-1",
    "1e",
    "1e+",
    "1e-",
    "1d",
    "e5",
    "1e5.0",
    "1 2",
    "1,5",
    "1.0,2.0",
    "0x1p3",
    "0X1.8P1",
    "0x",
    "0x1D",
    "-0x10",
    "+0x10",
    "inf",
    "INF",
    "-inf",
    "+inf",
    "infinity",
    "Infinity",
    "infinit",
    "nan",
    "NaN",
    "-nan",
    "nan(1)",
    "nan(",
    "nan()x",
    "1e999",
    "-1e999",
    "1e-400",
    "-1e-400",
    "5e-324",
    "4.9406564584124654e-324",
    "2.2250738585072014e-308",
    "2.2250738585072011e-308",
    "2.2250738585072012e-308",
    "2.2250738585072013e-308",
    "1.7976931348623157e308",
    "1.7976931348623159e308",
    "1.8e308",
    "0e999",
    "0.0e-999",
    "-0e5",
    "0d-400",
    "1e-308",
    "1.5e-310",
    "0x1p-1074",
    "0x1p-1075",
    "0x0.8p-1022",
    "9007199254740993",
    "123456789012345678901234567890",
    "0.1",
    "0.30000000000000004",
    "1_0",
    "1'0",
    "٣",
    "  7  ",
    "\v7\f",
    "\t\n",
    "",
    "1\0"s,
    "1\0"
    "2"s,
    "\0"s,
    "1.2.3",
    "1e1e1",
    "00012",
    "-00.100",
    "1e0000000000000000000001",
    "1e+05",
    "1e-05",
};

TEST(ReadReal, AgreesWithTheCLibrary) {
    for (const std::string& text : real_texts) {
        expect_same_real(text);
    }
    expect_same_real(std::string(5000, '1'));
    expect_same_real("0." + std::string(5000, '0') + "1");
    expect_same_real("0." + std::string(310, '0') + "12345");  // too small for all of its digits
    expect_same_real("-0." + std::string(310, '0') + "12345");
    expect_same_real("-0." + std::string(400, '0'));
    expect_same_real("1" + std::string(400, '0') + "e-400");
    expect_same_real("0." + std::string(400, '0') + "1e401");
}

TEST(ReadReal, AgreesWithTheCLibraryOnRandomTexts) {
    std::mt19937_64 random(20);
    constexpr std::string_view alphabet = "0123456789012345678901234567890.+-eEdDxpinfa ";
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (std::size_t n = random() % 12; n > 0; --n) {
            text += alphabet[random() % alphabet.size()];
        }
        expect_same_real(text);
    }
}

TEST(ReadReal, AgreesWithTheCLibraryOnPrintedDoublesOfAllSizes) {
    std::mt19937_64 random(21);
    for (int i = 0; i < 200000; ++i) {
        std::array<char, 64> text{};
        const double value = std::bit_cast<double>(random());
        std::snprintf(text.data(), text.size(), "%.*e", static_cast<int>(random() % 20), value);
        expect_same_real(text.data());
    }
}

// Texts with a digit group on either side of every length that the fast reading handles or hands over.
std::string random_decimal(std::mt19937_64& random) {
    std::string text = random() % 3 == 0 ? "-" : "";
    for (std::size_t n = random() % 20; n > 0; --n) {
        text += static_cast<char>('0' + random() % 10);
    }
    text += random() % 8 == 0 ? "" : ".";
    for (std::size_t n = random() % 20; n > 0; --n) {
        text += static_cast<char>('0' + random() % 10);
    }
    constexpr std::array<const char*, 8> tails = {"", "", "", "e-3", "D+02", ".", "x", "E"};
    return text + tails[random() % tails.size()];
}

TEST(ReadReal, AgreesWithTheCLibraryOnDecimalsOfAllLengths) {
    std::mt19937_64 random(23);
    for (int i = 0; i < 1000000; ++i) {
        expect_same_real(random_decimal(random));
    }
}

TEST(ReadReal, ReadsTheSameInEveryLocaleAndLeavesItAlone) {
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        const std::string before = std::setlocale(LC_ALL, nullptr);
        EXPECT_EQ(read_real("1.5D-3"), 1.5e-3) << name;
        EXPECT_EQ(read_real("0x1.8p1"), 3.0) << name;
        EXPECT_EQ(read_real("1,5"), std::nullopt) << name;
        EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    }
}

TEST(ReadReal, HeedsNoLocaleThatTheEnvironmentNames) {
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(read_real("0x1.8p1"), 3.0);
    EXPECT_EQ(read_real("0x1,8p1"), std::nullopt);
    EXPECT_EQ(read_real("1,5"), std::nullopt);
    ::unsetenv("LC_ALL");
}

// Digits follow, which must not be read, and after them a page that cannot be.
TEST(Numbers, AreReadToTheEndOfTheirTextAndNoFurther) {
    const std::string digits = "123456789.123456789012345678901234567890";
    for (std::size_t size = 1; size < digits.size(); ++size) {
        const std::string text = digits.substr(0, size);
        const test::AtPageEnd last(text);
        for (const std::string_view view : {std::string_view(digits).substr(0, size), last.view()}) {
            EXPECT_EQ(read_real(view), plain_real(text)) << text;
            const bool is_integer = size < digits.find('.') + 1;
            EXPECT_EQ(read_int32(view), is_integer ? std::optional(std::atoi(text.c_str())) : std::nullopt) << text;
        }
    }
}

TEST(ReadReal, LeavesErrnoAlone) {
    errno = 7;
    read_real("1e999");
    read_real("nonsense");
    EXPECT_EQ(errno, 7);
}

struct IntegerCase {
    std::string text;
    std::optional<std::int64_t> value;
};

const IntegerCase integer_cases[] = {
    {"0", 0},
    {"-0", 0},
    {"+5", 5},
    {"-5", -5},
    {"  7  ", 7},
    {"\t7\r\n", 7},
    {"007", 7},
    {"", {}},
    {"  ", {}},
    {"+", {}},
    {"-", {}},
    {"+-5", {}},
    {"--5", {}},
    {"5.0", {}},
    {"0x10", {}},
    {"1e3", {}},
    {"12abc", {}},
    {"1 2", {}},
    {"5\0"s, {}},
    {"1,000", {}},
    {"++5", {}},
    {"- 5", {}},
    {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
    {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
    {"9223372036854775808", {}},
    {"-9223372036854775809", {}},
    {"99999999999999999999", {}},
};

TEST(ReadInt64, TakesDecimalIntegersThatFit) {
    for (const IntegerCase& c : integer_cases) {
        EXPECT_EQ(read_int64(c.text), c.value) << "'" << c.text << "'";
    }
}

TEST(ReadInt32, TakesDecimalIntegersThatFit) {
    EXPECT_EQ(read_int32("2147483647"), 2147483647);
    EXPECT_EQ(read_int32("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(read_int32("2147483648"), std::nullopt);
    EXPECT_EQ(read_int32("-2147483649"), std::nullopt);
    EXPECT_EQ(read_int32("+1"), 1);
    EXPECT_EQ(read_int32(" -1 "), -1);
    EXPECT_EQ(read_int32("a"), std::nullopt);
    EXPECT_EQ(read_int32("1.0"), std::nullopt);
}

std::string printed(double value, int decimals) {
    std::array<char, 512> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string fixed(double value, int decimals) {
    std::string text = "|";
    append_fixed(text, value, decimals);
    return text.substr(1);
}

TEST(AppendFixed, PrintsWhatPrintfPrints) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               -1.5,
                               12345.678,
                               1e-12,
                               -1e-12,
                               1e20,
                               1e308,
                               -1e308,
                               5e-324,
                               0.5,
                               0.00000000005,
                               0.00000000015,
                               2.5,
                               1.00000000005,
                               infinity,
                               -infinity,
                               std::numeric_limits<double>::quiet_NaN(),
                               -std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::max(),
                               9007199254740993.0,
                               0.1,
                               1.0 / 3.0}) {
        EXPECT_EQ(fixed(value, 10), printed(value, 10));
        EXPECT_EQ(fixed(value, 6), printed(value, 6));
    }
    EXPECT_EQ(fixed(-0.0, 10), "-0.0000000000");
    EXPECT_EQ(fixed(12345.678, 10), "12345.6780000000");
    EXPECT_EQ(fixed(1e20, 6), "100000000000000000000.000000");
}

TEST(AppendFixed, PrintsWhatPrintfPrintsForRandomNumbers) {
    std::mt19937_64 random(22);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    for (int i = 0; i < 100000; ++i) {
        const double any = std::bit_cast<double>(random());
        EXPECT_EQ(fixed(any, 10), printed(any, 10));
        const double usual = coordinate(random);
        EXPECT_EQ(fixed(usual, 10), printed(usual, 10));
        const double tie = std::round(usual * 1024.0) / 1024.0 / 1048576.0;
        EXPECT_EQ(fixed(tie, 10), printed(tie, 10));
    }
}

TEST(AppendFixed, IsTheSameInEveryLocale) {
    const test::LocaleGuard locale("de_DE.UTF-8");
    EXPECT_EQ(fixed(1234567.5, 10), "1234567.5000000000");
    EXPECT_EQ(fixed(1234567.5, 6), "1234567.500000");
}

TEST(AppendInteger, PrintsPlainDecimals) {
    std::string text = "x";
    for (const std::int32_t value :
         {0, -1, 12, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        text += ' ';
        append_integer(text, value);
    }
    EXPECT_EQ(text, "x 0 -1 12 -2147483648 2147483647");
}

}  // namespace
}  // namespace velk::input::amesp
