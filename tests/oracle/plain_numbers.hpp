// The model's number readers and writers: the C library's own conversions under its classic locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velk::oracle {

std::optional<std::int32_t> read_int32(const std::string& text);
std::optional<std::int64_t> read_int64(const std::string& text);
// "D" and "d" mark exponents as well; infinities and NaNs are read, numbers out of range are not.
std::optional<double> read_real(const std::string& text);

std::string with_ten_decimals(double value);
std::string with_six_decimals(double value);

}  // namespace velk::oracle
