// Decimals of few digits, against the C library in the classic locale.
#include "model/short_decimal.hpp"

#include <gtest/gtest.h>

#include <cfenv>
#include <cstdlib>
#include <random>
#include <string>

#include "support/at_page_end.hpp"

namespace velk::input::amesp {
namespace {

// Where something is decided, it is what the C library reads at the front of the text.
void expect_as_the_c_library(const std::string& text) {
    const ShortDecimal decimal = short_decimal(text);
    if (decimal.size == 0) {
        return;
    }
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(decimal.value), std::bit_cast<std::uint64_t>(expected)) << text;
    ASSERT_EQ(decimal.size, static_cast<std::size_t>(end - text.c_str())) << text;
}

std::string random_digits(std::mt19937_64& random, std::size_t most) {
    std::string digits;
    for (std::size_t n = random() % (most + 1); n > 0; --n) {
        digits += static_cast<char>('0' + random() % 10);
    }
    return digits;
}

TEST(ShortDecimal, ReadsEveryNumberOfSevenDigitsAndEightDecimals) {
    for (const char* const text : {"0", "-0", "+7", "1.", "-.5", "0.0", "-0.0000000000", "12.3456789012", "1234567",
                                   "-1234567.12345678", "9999999.99999999", "0.00000000000001", "123456.1"}) {
        EXPECT_EQ(short_decimal(std::string_view(text)).size, std::string_view(text).size()) << text;
        expect_as_the_c_library(text);
    }
}

TEST(ShortDecimal, DecidesNothingThatItCannotReadExactly) {
    for (const char* const text : {"", "-", "+", ".", "-.", "+-1", "x", "inf", "nan", " 1", "12345678", "12345678.5",
                                   "0.123456789012345", "1234567.123456789", "99999999999999999999"}) {
        EXPECT_EQ(short_decimal(std::string_view(text)).size, 0U) << text;
    }
}

TEST(ShortDecimal, StopsAtTheFirstByteThatIsNoPartOfThePlainNumber) {
    EXPECT_EQ(short_decimal(std::string_view("1.5 2")).size, 3U);
    EXPECT_EQ(short_decimal(std::string_view("1.5e3")).size, 3U);
    EXPECT_EQ(short_decimal(std::string_view("0x10")).size, 1U);
    EXPECT_EQ(short_decimal(std::string_view("1.2.3")).size, 3U);
    EXPECT_EQ(short_decimal(std::string_view("1\0"
                                             "2",
                                             3))
                  .size,
              1U);
    EXPECT_EQ(short_decimal(std::string_view("7\xb1\xb2")).size, 1U);  // digits but for the high bit
}

// The bytes of the sign, of two groups and the one after them, and no other.
TEST(ShortDecimal, ReadsNoMoreThanTheReadableBytes) {
    for (const std::string sign : {"", "-", "+"}) {
        for (std::size_t whole = 0; whole < short_decimals::readable_size; ++whole) {
            std::string text = sign + std::string(whole, '4') + '.';
            text.resize(short_decimals::readable_size, '5');
            const test::AtPageEnd last(text);
            const ShortDecimal decimal = short_decimal(last.view().data());
            EXPECT_TRUE(decimal.size == 0 || decimal.size == text.size()) << text;
        }
    }
}

TEST(ShortDecimal, AgreesWithTheCLibraryOnMillionsOfNumbers) {
    std::mt19937_64 random(40);
    constexpr std::array<const char*, 3> signs = {"", "-", "+"};
    for (int i = 0; i < 2000000; ++i) {
        std::string text = signs[random() % signs.size()] + random_digits(random, 8);
        if (random() % 8 != 0) {
            text += '.' + random_digits(random, 12);
        }
        expect_as_the_c_library(text);
    }
}

TEST(ShortDecimal, StopsAtEveryByteThatIsNoDigit) {
    const std::string number = "12.3456789012";
    for (int byte = 0; byte < 256; ++byte) {
        for (std::size_t place = 3; place < number.size(); ++place) {
            std::string text = number;
            text[place] = static_cast<char>(byte);
            const bool digit = byte >= '0' && byte <= '9';
            EXPECT_EQ(short_decimal(std::string_view(text)).size, digit ? number.size() : place)
                << byte << " at " << place;
            expect_as_the_c_library(text.substr(0, place));
        }
        for (std::size_t place = 0; place < 2; ++place) {
            std::string text = number;
            text[place] = static_cast<char>(byte);
            expect_as_the_c_library(text);
        }
    }
}

TEST(ShortDecimal, RoundsAsTheCLibraryDoesInEveryMode) {
    const int saved = std::fegetround();
    std::mt19937_64 random(41);
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        for (int i = 0; i < 50000; ++i) {
            expect_as_the_c_library((random() % 2 == 0 ? "-" : "") + random_digits(random, 3) + '.' +
                                    random_digits(random, 12));
        }
    }
    std::fesetround(saved);
}

}  // namespace
}  // namespace velk::input::amesp
