// A coordinate scaled to an integer exactly, rounded once, and its digits made eight at a time.
#include "model/coordinate_text.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace velk::input::amesp {
namespace {

__extension__ using Wide = unsigned __int128;  // 53 bits times 10^10, shifted by up to 30, need 117

constexpr std::uint64_t ten_to_8 = 100000000;
constexpr std::uint64_t scale = 10000000000;
constexpr std::uint64_t mantissa_bits = std::numeric_limits<double>::digits - 1;
constexpr std::uint64_t exponent_bias = 1023;
constexpr std::uint64_t largest_exponent = exponent_bias + 18;  // below 2^19: with the decimals at most sixteen digits

static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == sizeof(std::uint64_t));

// |value| * 10^10, rounded half to even. `exponent` and `mantissa` are the fields of the double.
std::uint64_t scaled(std::uint64_t exponent, std::uint64_t mantissa) noexcept {
    constexpr std::uint64_t unit_exponent = exponent_bias + mantissa_bits;  // of doubles that are integers
    constexpr std::uint64_t all_below_half = 100;  // bits: shifted out, they leave nothing, nor do subnormals
    const std::uint64_t shift = unit_exponent - exponent;
    if (shift >= all_below_half) {
        return 0;
    }
    // The point is to stand in the middle of the product: the scale has room for the bits that this takes, and what is
    // too small for it loses bits that decide nothing, since no double comes so near to half a unit.
    const std::uint64_t digits = mantissa | (std::uint64_t{1} << mantissa_bits);
    constexpr std::uint64_t middle = 64;
    Wide exact = 0;
    if (shift <= middle) {
        exact = Wide{digits} * (scale << (middle - shift));
    } else {
        exact = (Wide{digits} * scale) >> (shift - middle);
    }
    const auto whole = static_cast<std::uint64_t>(exact >> middle);
    const auto rest = static_cast<std::uint64_t>(exact);
    const std::uint64_t half_or_more = rest + ((std::uint64_t{1} << 63) - 1) + (whole & 1);
    return whole + (half_or_more < rest ? 1 : 0);
}

// The eight decimal digits of a number below 10^8, as bytes 0 to 9, the first digit in the lowest byte: each step
// divides all parts at once, by a multiplication that is exact in their range.
std::uint64_t eight_digits(std::uint64_t number) noexcept {
    constexpr std::uint64_t fours = 0x0000007F0000007F;
    constexpr std::uint64_t twos = 0x000F000F000F000F;
    const std::uint64_t halves = number / 10000 | (number % 10000 << 32);
    const std::uint64_t hundreds = ((halves * 10486) >> 20) & fours;
    const std::uint64_t pairs = hundreds | ((halves - 100 * hundreds) << 16);
    const std::uint64_t tens = ((pairs * 103) >> 10) & twos;
    return tens | ((pairs - 10 * tens) << 8);
}

constexpr std::uint64_t digit_zero = 0x3030303030303030;

}  // namespace

char* write_coordinate(char* out, double value) noexcept {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t mantissa = bits & ((std::uint64_t{1} << mantissa_bits) - 1);
    const std::uint64_t exponent = (bits >> mantissa_bits) & 0x7FF;
    if (std::endian::native != std::endian::little || exponent > largest_exponent) {
        return nullptr;
    }
    *out = '-';
    out += bits >> 63;
    const std::uint64_t number = scaled(exponent, mantissa);
    // Six digits before the point and two after it, then the other eight decimals. Eight bytes are written each time,
    // of which the next ones cover what has no meaning.
    const std::uint64_t upper = eight_digits(number / ten_to_8);
    const std::uint64_t lower = eight_digits(number % ten_to_8) | digit_zero;
    constexpr std::uint64_t last_before_point = std::uint64_t{1} << 40;  // zero is written as one digit
    const int zeros = std::countr_zero(upper | last_before_point) / 8;
    const std::uint64_t text = upper | digit_zero;
    const std::uint64_t without_zeros = text >> (8 * zeros);
    std::memcpy(out, &without_zeros, sizeof without_zeros);
    out += 6 - zeros;
    *out++ = '.';
    const auto decimals = static_cast<std::uint16_t>(text >> 48);
    std::memcpy(out, &decimals, sizeof decimals);
    out += sizeof decimals;
    std::memcpy(out, &lower, sizeof lower);
    return out + sizeof lower;
}

}  // namespace velk::input::amesp
