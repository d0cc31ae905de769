// Coordinates as text, against printf in the classic locale.
#include "model/coordinate_text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace velk::input::amesp {
namespace {

constexpr double limit = 524288.0;  // 2^19

std::string written(double value) {
    std::array<char, longest_coordinate> text{};
    const char* const begin = text.data();
    const char* const end = write_coordinate(text.data(), value);
    return end == nullptr ? "not written" : std::string(begin, end);
}

void expect_as_printf(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.10f", value);
    ASSERT_EQ(written(value), text.data()) << std::hexfloat << value;
}

void expect_both_signs_as_printf(double value) {
    expect_as_printf(value);
    expect_as_printf(-value);
}

struct Case {
    double value;
    const char* text;
};

TEST(WriteCoordinate, WritesTenDecimalsRoundedHalfToEven) {
    for (const Case& c : std::initializer_list<Case>{
             {0.0, "0.0000000000"},
             {-0.0, "-0.0000000000"},
             {-1e-12, "-0.0000000000"},
             {std::numeric_limits<double>::denorm_min(), "0.0000000000"},
             {1.5, "1.5000000000"},
             {-12345.678, "-12345.6780000000"},
             {std::ldexp(1.0, -11), "0.0004882812"},      // 0.00048828125
             {3 * std::ldexp(1.0, -11), "0.0014648438"},  // 0.00146484375
             {99.999999999999, "100.0000000000"},
             {std::nextafter(limit, 0.0), "524287.9999999999"},
         }) {
        EXPECT_EQ(written(c.value), c.text);
        expect_both_signs_as_printf(c.value);
    }
}

TEST(WriteCoordinate, LeavesLargeNumbersInfinitiesAndNanToOthers) {
    for (const double value : {limit, -limit, 1e300, std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(written(value), "not written") << value;
    }
}

TEST(WriteCoordinate, AgreesWithPrintfAtEveryPowerOfTwo) {
    for (int exponent = -1074; exponent < 19; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        expect_both_signs_as_printf(power);
        expect_both_signs_as_printf(std::nextafter(power, 0.0));
        expect_both_signs_as_printf(std::nextafter(power, limit / 2));
    }
}

// A mantissa times 10^10, with more than 64 bits after the point: where the first 64 of them are half a unit, so is
// all.
TEST(WriteCoordinate, MeetsNoNumberThatOnlyTheLastBitsTellFromAHalf) {
    __extension__ using Wide = unsigned __int128;
    constexpr Wide scale = 10000000000;
    constexpr Wide least = scale << 52;
    constexpr Wide most = (scale << 53) - scale;
    for (int bits = 65; bits < 100; ++bits) {
        for (Wide whole = least >> bits; whole <= most >> bits; ++whole) {
            const Wide half = (whole << bits) + (Wide{1} << (bits - 1));
            const Wide last = std::min(most, half + (Wide{1} << (bits - 64)) - 1);
            const Wide nearest = last / scale * scale;
            ASSERT_FALSE(nearest > half && nearest >= least) << bits;
        }
    }
}

TEST(WriteCoordinate, AgreesWithPrintfOnMillionsOfNumbers) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> usual(-100.0, 100.0);
    for (int i = 0; i < 500000; ++i) {
        expect_as_printf(usual(random));
        expect_as_printf(std::ldexp(usual(random), -static_cast<int>(random() % 60)));
        // Ties, and their neighbours: an odd number of halves of the last decimal that a double can hold.
        const double tie = std::ldexp(static_cast<double>(random() % (1U << 26)), -11 - static_cast<int>(random() % 4));
        expect_as_printf(tie);
        expect_as_printf(std::nextafter(tie, 0.0));
        const double any = std::bit_cast<double>(random());
        if (std::abs(any) < limit) {
            expect_as_printf(any);
        }
    }
}

}  // namespace
}  // namespace velk::input::amesp
