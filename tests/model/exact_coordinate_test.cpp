// Coordinates as text that reads back to the same bits.
#include "model/exact_coordinate.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

struct Written {
    bool exact = false;
    std::string text;

    bool operator==(const Written&) const = default;
};

void PrintTo(const Written& written, std::ostream* out) {
    *out << written.text << (written.exact ? ", exact" : ", not exact");
}

Written written(double value) {
    Written result{false, "H "};
    result.exact = append_exact_coordinate(result.text, value);
    EXPECT_EQ(result.text.substr(0, 2), "H ") << "what stands before it stays";
    result.text.erase(0, 2);
    return result;
}

struct Case {
    double value;
    Written written;
};

TEST(ExactCoordinate, HasTenDecimalsWhereTheyAreExactAndElseAsManyDigitsAsItNeeds) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Case& c : std::initializer_list<Case>{
             {0.0, {true, "0.0000000000"}},
             {-0.0, {true, "-0.0000000000"}},
             {0.7572, {true, "0.7572000000"}},
             {-12345.678, {true, "-12345.6780000000"}},
             {0.1234567891, {true, "0.1234567891"}},
             {0.12345678912, {true, "0.12345678912"}},
             {1.0 / 3, {true, "0.3333333333333333"}},
             {1e-11, {true, "1e-11"}},
             {1e22, {true, "10000000000000000000000.0000000000"}},
             {-std::numeric_limits<double>::min() * 1.0000000000000002, {true, "-2.225073858507202e-308"}},
             {infinity, {true, "inf"}},
             {-infinity, {true, "-inf"}},
             {std::numeric_limits<double>::denorm_min(), {false, "5e-324"}},
         }) {
        EXPECT_EQ(written(c.value), c.written) << std::hexfloat << c.value;
    }
}

TEST(ExactCoordinate, ReadsBackToTheSameBits) {
    std::mt19937_64 random(42);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isnormal(value)) {
            continue;
        }
        const Written text = written(value);
        ASSERT_TRUE(text.exact) << std::hexfloat << value;
        ASSERT_EQ(read_real(text.text), value) << text.text;
    }
}

}  // namespace
}  // namespace velk::input::amesp
