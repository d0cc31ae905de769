// The words of a line one after the other, reals among them read where they stand.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include <velk/core/text_view.hpp>

#include "model/numbers.hpp"
#include "model/short_decimal.hpp"

namespace velk::input::amesp {

// Keeps place and end as two pointers, and gives a number into a variable: a view or an optional that is put together
// in memory and read again as a whole makes the processor wait, for as long as reading a coordinate takes.
class RealWords {
public:
    // The bytes of `text`, and those from its end to `readable_end`, which may lie after it, can be read.
    RealWords(std::string_view text, const char* readable_end) noexcept
        : place_(text.data()), end_(text.data() + text.size()), readable_end_(readable_end) {}

    // The next word, as core::text::take_word gives it.
    std::string_view take_word() noexcept {
        skip_spaces();
        const char* const begin = place_;
        while (place_ != end_ && !core::text::is_space(*place_)) {
            ++place_;
        }
        return {begin, static_cast<std::size_t>(place_ - begin)};
    }

    // Takes the next word; false when read_real makes no number of it, else `value` is that number.
    bool take_real(double& value) {
        skip_spaces();
        if (readable_end_ - place_ >= static_cast<std::ptrdiff_t>(short_decimals::readable_size)) {
            const ShortDecimal decimal = short_decimal(place_);
            const auto left = static_cast<std::size_t>(end_ - place_);
            if (decimal.size != 0 && (decimal.size == left || ends_word(decimal.size, left))) {
                place_ += decimal.size;
                value = decimal.value;
                return true;
            }
        }
        const std::optional<double> read = read_real(take_word());
        value = read.value_or(value);
        return read.has_value();
    }

private:
    bool ends_word(std::size_t size, std::size_t left) const noexcept {
        return size < left && core::text::is_space(place_[size]);
    }

    void skip_spaces() noexcept {
        while (place_ != end_ && core::text::is_space(*place_)) {
            ++place_;
        }
    }

    const char* place_;
    const char* end_;
    const char* readable_end_;
};

}  // namespace velk::input::amesp
