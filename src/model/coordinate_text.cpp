// A coordinate scaled to an integer exactly, rounded once, and its digits made eight at a time.
#include "model/coordinate_text.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace velk::input::amesp {
namespace {

__extension__ using Wide = unsigned __int128;  // 53 bits times 10^10 need 87

constexpr std::uint64_t ten_to_8 = 100000000;
constexpr std::uint64_t scale = 100 * ten_to_8;
constexpr std::uint64_t mantissa_bits = std::numeric_limits<double>::digits - 1;
constexpr std::uint64_t exponent_bias = 1023;
constexpr std::uint64_t largest_exponent = exponent_bias + 25;  // below 2^26, so at most eight digits before the point

static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == sizeof(std::uint64_t));

// |value| * 10^10, rounded half to even. `exponent` and `mantissa` are the fields of the double.
std::uint64_t scaled(std::uint64_t exponent, std::uint64_t mantissa) noexcept {
    constexpr std::uint64_t unit_exponent = exponent_bias + mantissa_bits;  // of doubles that are integers
    constexpr std::uint64_t all_below_half = 100;  // bits: shifted out, they leave nothing, nor do subnormals
    const std::uint64_t shift = unit_exponent - exponent;
    if (shift >= all_below_half) {
        return 0;
    }
    const Wide exact = Wide{mantissa | (std::uint64_t{1} << mantissa_bits)} * scale;
    const Wide odd = (exact >> shift) & 1;
    const Wide just_below_half = (Wide{1} << (shift - 1)) - 1;
    return static_cast<std::uint64_t>((exact + just_below_half + odd) >> shift);
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

char* write_eight(char* out, std::uint64_t number) noexcept {
    const std::uint64_t text = eight_digits(number) | digit_zero;
    std::memcpy(out, &text, sizeof text);
    return out + sizeof text;
}

// Without leading zeros. Writes eight bytes, of which those behind the returned end mean nothing.
char* write_up_to_eight(char* out, std::uint64_t number) noexcept {
    const std::uint64_t digits = eight_digits(number);
    constexpr std::uint64_t last_digit = std::uint64_t{1} << 56;  // zero is written as one digit
    const int zeros = std::countr_zero(digits | last_digit) / 8;
    const std::uint64_t text = (digits | digit_zero) >> (8 * zeros);
    std::memcpy(out, &text, sizeof text);
    return out + (8 - zeros);
}

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
    out = write_up_to_eight(out, number / scale);
    *out++ = '.';
    const std::uint64_t decimals = number % scale;
    *out++ = static_cast<char>('0' + decimals / (10 * ten_to_8));
    *out++ = static_cast<char>('0' + decimals / ten_to_8 % 10);
    return write_eight(out, decimals % ten_to_8);
}

}  // namespace velk::input::amesp
