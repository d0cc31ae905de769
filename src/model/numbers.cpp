// Numbers in text. std::from_chars and std::to_chars know no locale and are exact, but differ from the C library in
// what they accept and in which results they call out of range; where they cannot decide, the C library does.
#include "model/numbers.hpp"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <system_error>

#include <velk/core/text_view.hpp>

#include "model/short_decimal.hpp"

namespace velk::input::amesp {
namespace {

// The C library takes a leading '+', std::from_chars does not. "+-1" must not become "-1".
std::string_view without_plus(std::string_view text) noexcept {
    if (text.size() > 1 && text[0] == '+' && is_digit(text[1])) {
        text.remove_prefix(1);
    }
    return text;
}

template <class Integer>
std::optional<Integer> read_integer(std::string_view text) {
    const std::string_view digits = without_plus(core::text::trim_view(text));
    Integer value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

// A decimal whose value no rounding could take out of range. `text` is not empty.
std::optional<double> read_plain_decimal(std::string_view text) {
    const std::string_view digits = without_plus(text);
    double value = 0.0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    // Coordinates hold zeros of many decimals, which come out as they are.
    const bool decided = std::abs(value) > std::numeric_limits<double>::min() ||
                         digits.find_first_not_of("-.0") == std::string_view::npos;
    return decided ? std::optional(value) : std::nullopt;
}

class ClassicLocale {
public:
    ClassicLocale() : handle_(::newlocale(LC_ALL_MASK, "C", nullptr)) {}
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;
    ~ClassicLocale() { ::freelocale(handle_); }
    locale_t get() const noexcept { return handle_; }

private:
    locale_t handle_;
};

std::optional<double> read_with_c_library(const std::string& text) {
    // The handle of "C" is a constant of the C library: making it neither allocates nor fails.
    const ClassicLocale classic;
    const int saved = errno;
    errno = 0;
    char* end = nullptr;
    const double value = ::strtod_l(text.c_str(), &end, classic.get());
    const bool in_range = errno != ERANGE;
    errno = saved;
    if (!in_range || end != text.c_str() + text.size()) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::optional<std::int32_t> read_int32(std::string_view text) {
    return read_integer<std::int32_t>(text);
}

std::optional<std::int64_t> read_int64(std::string_view text) {
    return read_integer<std::int64_t>(text);
}

std::optional<double> read_real(std::string_view text) {
    const std::string_view trimmed = core::text::trim_view(text);
    if (trimmed.empty()) {
        return std::nullopt;
    }
    if (const ShortDecimal decimal = short_decimal(trimmed); decimal.size == trimmed.size()) {
        return decimal.value;
    }
    if (const std::optional<double> value = read_plain_decimal(trimmed)) {
        return value;
    }
    std::string with_e(trimmed);
    std::replace(with_e.begin(), with_e.end(), 'D', 'E');
    std::replace(with_e.begin(), with_e.end(), 'd', 'e');
    if (const std::optional<double> value = read_plain_decimal(with_e)) {
        return value;
    }
    return read_with_c_library(with_e);
}

void append_fixed(std::string& out, double value, int decimals) {
    // Room for the longest double: sign, digits before the point, the point, decimals.
    constexpr std::size_t longest = 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1;
    const std::size_t size = out.size();
    out.resize(size + longest + static_cast<std::size_t>(decimals));
    const auto [end, error] =
        std::to_chars(out.data() + size, out.data() + out.size(), value, std::chars_format::fixed, decimals);
    out.resize(static_cast<std::size_t>(end - out.data()));
}

void append_integer(std::string& out, std::int32_t value) {
    char text[std::numeric_limits<std::int32_t>::digits10 + 2];
    const auto [end, error] = std::to_chars(std::begin(text), std::end(text), value);
    out.append(std::begin(text), end);
}

}  // namespace velk::input::amesp
