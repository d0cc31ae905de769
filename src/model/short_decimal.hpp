// Decimals of at most fifteen digits, read eight bytes at a time: the numbers that almost every input consists of.
#pragma once

#include <array>
#include <bit>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velk::input::amesp {

// A number at the front of a text: its value and how many bytes it takes. No bytes: not decided here.
struct ShortDecimal {
    double value = 0.0;
    std::size_t size = 0;
};

constexpr bool is_digit(char c) noexcept {
    return c >= '0' && c <= '9';
}

namespace short_decimals {

inline constexpr std::size_t group_size = 8;
inline constexpr std::size_t readable_size = 1 + 2 * group_size + 1;  // a sign, two groups and the byte after them

inline constexpr std::array<std::uint64_t, group_size + 1> integer_powers = {1,      10,      100,      1000,     10000,
                                                                             100000, 1000000, 10000000, 100000000};
inline constexpr std::array<double, 16> powers = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Eight bytes of text, the first one lowest, each digit turned into its value. Positions are counted in bits.
struct Group {
    std::uint64_t values = 0;
    std::uint64_t others = 0;  // the high bits of bytes that are no digits; right up to the first but a point

    explicit Group(const char* from) noexcept {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, from, group_size);
        constexpr std::uint64_t zeros = 0x3030303030303030;
        constexpr std::uint64_t above_nine = 0x7676767676767676;  // added to a byte above 9, sets its high bit
        constexpr std::uint64_t high_bits = 0x8080808080808080;
        values = bytes ^ zeros;
        others = ((values + above_nine) | values) & high_bits;
    }
};

// Where the lowest byte that is marked begins; 64 when none is.
inline unsigned first_marked(std::uint64_t high_bits) noexcept {
    return static_cast<unsigned>(std::countr_zero(high_bits)) & ~7U;
}

// The number that the lowest `bits` of `values` spell; at least one digit.
inline std::uint64_t number(std::uint64_t values, unsigned bits) noexcept {
    constexpr std::uint64_t pairs = 0x000000FF000000FF;
    std::uint64_t digits = values << (64 - bits);  // as if zeros stood before them
    digits = digits * 10 + (digits >> 8);
    const std::uint64_t first = (digits & pairs) * (100 + (std::uint64_t{1000000} << 32));
    const std::uint64_t second = ((digits >> 16) & pairs) * (1 + (std::uint64_t{10000} << 32));
    return (first + second) >> 32;
}

// Without a branch: signs follow no pattern that a processor could foresee.
inline double with_sign(double size, bool negative) noexcept {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(size) | (static_cast<std::uint64_t>(negative) << 63));
}

// Fifteen digits are an integer below 2^53, and the power of ten is exact as well: their quotient is rounded once, as
// the C library rounds, in the mode that the process has set.
inline double quotient(std::uint64_t digits, unsigned decimals, bool negative) noexcept {
    return with_sign(static_cast<double>(static_cast<std::int64_t>(digits)), negative) / powers[decimals];
}

// Digits, a point and decimals, `first` being their first eight bytes and `whole` the place of the point in it. No
// bytes in the result: there are more digits than two groups hold, or none.
inline ShortDecimal with_point(const char* from, const Group& first, unsigned whole, bool negative) noexcept {
    const std::uint64_t before = (std::uint64_t{1} << whole) - 1;
    const std::uint64_t values = (first.values & before) | ((first.values >> 8) & ~before);
    const unsigned count = first_marked(first.others & (first.others - 1)) - 8;  // the point's own mark is the first
    if (count == 0) {
        return {};
    }
    std::uint64_t digits = number(values, count);
    unsigned decimals = (count - whole) / 8;
    std::size_t size = count / 8 + 1;
    if (size == group_size) {
        const Group second(from + size);
        const unsigned more = first_marked(second.others);
        if (more == 64 && is_digit(from[size + group_size])) {
            return {};
        }
        if (more > 0) {
            digits = digits * integer_powers[more / 8] + number(second.values, more);
            decimals += more / 8;
            size += more / 8;
        }
    }
    return {quotient(digits, decimals, negative), size};
}

}  // namespace short_decimals

// Reads a sign, at most seven digits, a point and decimals from a text of which `readable_size` bytes can be read.
inline ShortDecimal short_decimal(const char* from) noexcept {
    using namespace short_decimals;
    if constexpr (std::endian::native != std::endian::little || FLT_EVAL_METHOD != 0) {
        return {};
    }
    const bool negative = *from == '-';
    const std::size_t sign = static_cast<std::size_t>(negative) + static_cast<std::size_t>(*from == '+');
    const Group first(from + sign);
    const unsigned whole = first_marked(first.others);
    if (whole == 64) {
        return {};
    }
    ShortDecimal decimal;
    if (((first.values >> whole) & 0xFF) == ('.' ^ '0')) {
        decimal = with_point(from + sign, first, whole, negative);
    } else if (whole > 0) {
        decimal = {quotient(number(first.values, whole), 0, negative), whole / 8};
    }
    decimal.size += decimal.size > 0 ? sign : 0;
    return decimal;
}

// The same for a text that nothing readable follows.
inline ShortDecimal short_decimal(std::string_view text) noexcept {
    using short_decimals::readable_size;
    if (text.empty() || text.size() > readable_size) {
        return {};
    }
    std::array<char, readable_size> bytes{};
    std::memcpy(bytes.data(), text.data(), text.size());
    return short_decimal(bytes.data());
}

}  // namespace velk::input::amesp
