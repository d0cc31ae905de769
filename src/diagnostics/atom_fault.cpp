// Holds the words of a line against symbol, x, y and z.
#include "diagnostics/atom_fault.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/coordinate_words.hpp"
#include "diagnostics/elements.hpp"
#include "diagnostics/shown_name.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;

constexpr std::array<std::string_view, 3> axes = {"x", "y", "z"};

bool is_real_with_point(std::string_view text) {
    return text.find('.') != std::string_view::npos && read_real(text).has_value();
}

bool is_atomic_number(std::string_view word) {
    constexpr std::int32_t heaviest = 118;
    const std::optional<std::int32_t> number = read_int32(word);
    return number && *number >= 1 && *number <= heaviest;
}

// Of a line that holds so many coordinates and no more words.
AtomFault missing_columns(std::string_view line, std::string_view symbol, std::size_t count) {
    const std::string_view tail = symbol.substr(leading_letters(symbol).size());
    if (is_real_with_point(tail)) {
        const bool is_all = tail.size() == symbol.size();
        return {symbol,
                is_all ? "the symbol is missing before " + shown_name(symbol)
                       : shown_name(symbol) + " is a symbol and a number grown together, write a blank between them",
                {},
                {}};
    }
    std::string message = "the " + std::string(axes[count]);
    for (std::size_t i = count + 1; i < axes.size(); ++i) {
        message += (i + 1 == axes.size() ? " and " : ", ") + std::string(axes[i]);
    }
    return {line, message + (count + 1 == axes.size() ? " coordinate is missing" : " coordinates are missing"), {}, {}};
}

// The words after the symbol, up to three coordinates.
class Columns {
public:
    explicit Columns(std::string_view line) : line_(line), rest_(line), symbol_(take_word(rest_)) {}

    AtomFault run() {
        std::string_view word = take_word(rest_);
        for (; count_ < axes.size() && !word.empty(); word = take_word(rest_)) {
            read(word);
        }
        if (!fault_) {
            return missing_columns(line_, symbol_, count_);
        }
        const bool too_many = has_grown_ && !word.empty() && read_real(word);
        if (!can_be_fixed_ || count_ != axes.size() || too_many) {
            fault_->changes.clear();
        }
        return std::move(*fault_);
    }

private:
    void read(std::string_view word) {
        CoordinateWord read = read_coordinate(word);
        if (!read.fault.empty() && !fault_) {
            fault_ =
                AtomFault{word,
                          "the " + std::string(axes[count_]) + " coordinate " + shown_name(word) + " " + read.fault,
                          {},
                          numbers_};
        }
        count_ += read.count;
        has_grown_ = has_grown_ || read.count > 1;
        const std::string_view numbers = read.fault.empty() ? word : read.numbers;
        numbers_ += numbers_.empty() ? "" : " ";
        numbers_ += numbers;
        if (!fault_) {
            return;
        }
        fault_->numbers = numbers_;
        fault_->applicability = std::max(fault_->applicability, read.applicability);
        can_be_fixed_ = can_be_fixed_ && !numbers.empty();
        if (!read.fault.empty()) {
            fault_->changes.push_back({word, std::move(read.numbers)});
        }
    }

    const std::string_view line_;
    std::string_view rest_;
    const std::string_view symbol_;
    std::size_t count_ = 0;
    bool has_grown_ = false;
    bool can_be_fixed_ = true;
    std::string numbers_;
    std::optional<AtomFault> fault_;
};

}  // namespace

bool resembles_atom(std::string_view line) {
    std::string_view rest = line;
    const std::string_view symbol = take_word(rest);
    std::size_t words = 0;
    std::size_t numbers = 0;
    for (std::string_view word = take_word(rest); words < axes.size() && !word.empty(); word = take_word(rest)) {
        ++words;
        numbers += resembles_number(word) ? 1U : 0U;
    }
    if (begins_with_symbol(symbol)) {
        return numbers > 0 && (numbers == words || numbers > 1);
    }
    if (is_atomic_number(symbol) || is_real_with_point(symbol)) {
        return numbers > 1;
    }
    return numbers == axes.size() && !leading_letters(symbol).empty();
}

AtomFault find_atom_fault(std::string_view line) {
    return Columns(line).run();
}

}  // namespace velk::input::amesp
