// A coordinate with as many digits as it needs.
#include "model/exact_coordinate.hpp"

#include <bit>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "model/coordinate_text.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

bool reads_as(std::string_view text, double value) {
    const std::optional<double> read = read_real(text);
    return read && std::bit_cast<std::uint64_t>(*read) == std::bit_cast<std::uint64_t>(value);
}

}  // namespace

bool append_exact_coordinate(std::string& out, double value) {
    const std::size_t begin = out.size();
    append_fixed(out, value, coordinate_decimals);
    if (reads_as(std::string_view(out).substr(begin), value)) {
        return true;
    }
    char shortest[32];  // sign, 17 digits, point, exponent of five bytes
    const auto [end, error] = std::to_chars(std::begin(shortest), std::end(shortest), value);
    const std::string_view text(std::begin(shortest), static_cast<std::size_t>(end - std::begin(shortest)));
    out.replace(begin, std::string::npos, text);
    return reads_as(text, value);
}

}  // namespace velk::input::amesp
