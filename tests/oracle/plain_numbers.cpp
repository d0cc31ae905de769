// The model's number readers and writers: the C library's own conversions under its classic locale.
#include "oracle/plain_numbers.hpp"

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

#include "oracle/plain_text.hpp"

namespace velk::oracle {

namespace {

class ClassicLocale {
public:
    ClassicLocale() : before_(::uselocale(classic())) {}
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;
    ~ClassicLocale() { ::uselocale(before_); }

private:
    static locale_t classic() {
        static const locale_t locale = ::newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    locale_t before_;
};

std::string formatted(const char* format, double value) {
    const ClassicLocale locale;
    std::vector<char> buffer(512);
    std::snprintf(buffer.data(), buffer.size(), format, value);
    return buffer.data();
}

}  // namespace

std::optional<std::int32_t> read_int32(const std::string& text) {
    const ClassicLocale locale;
    const std::string digits = trim(text);
    char* end = nullptr;
    errno = 0;
    const long value = std::strtol(digits.c_str(), &end, 10);
    if (digits.empty() || end == digits.c_str() || end != digits.c_str() + digits.size() || errno == ERANGE) {
        return std::nullopt;
    }
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int64_t> read_int64(const std::string& text) {
    const ClassicLocale locale;
    const std::string digits = trim(text);
    char* end = nullptr;
    errno = 0;
    const long long value = std::strtoll(digits.c_str(), &end, 10);
    if (digits.empty() || end == digits.c_str() || end != digits.c_str() + digits.size() || errno == ERANGE) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> read_real(const std::string& text) {
    const ClassicLocale locale;
    std::string digits = trim(text);
    for (char& byte : digits) {
        if (byte == 'D') {
            byte = 'E';
        } else if (byte == 'd') {
            byte = 'e';
        }
    }
    char* end = nullptr;
    errno = 0;
    const double value = std::strtod(digits.c_str(), &end);
    if (digits.empty() || end == digits.c_str() || end != digits.c_str() + digits.size() || errno == ERANGE) {
        return std::nullopt;
    }
    return value;
}

std::string with_ten_decimals(double value) {
    return formatted("%.10f", value);
}

std::string with_six_decimals(double value) {
    return formatted("%f", value);
}

}  // namespace velk::oracle
