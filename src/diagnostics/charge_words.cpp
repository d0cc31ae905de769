// Charge and multiplicity as people write them.
#include "diagnostics/charge_words.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "model/key.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

enum class Meaning { none, charge, multiplicity };

struct NamedValue {
    std::string_view word;
    Meaning meaning;
    std::int32_t value;
};

constexpr auto named_values = std::to_array<NamedValue>({
    {"singlet", Meaning::multiplicity, 1},
    {"doublet", Meaning::multiplicity, 2},
    {"triplet", Meaning::multiplicity, 3},
    {"quartet", Meaning::multiplicity, 4},
    {"quintet", Meaning::multiplicity, 5},
    {"sextet", Meaning::multiplicity, 6},
    {"septet", Meaning::multiplicity, 7},
    {"neutral", Meaning::charge, 0},
    {"cation", Meaning::charge, 1},
    {"anion", Meaning::charge, -1},
});

constexpr auto labels = std::to_array<NamedValue>({
    {"charge", Meaning::charge, 0},
    {"chrg", Meaning::charge, 0},
    {"q", Meaning::charge, 0},
    {"mult", Meaning::multiplicity, 0},
    {"multiplicity", Meaning::multiplicity, 0},
});

template <class Table>
const NamedValue* find(const Table& table, std::string_view word) {
    const Key key(word);
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const NamedValue& each) { return each.word == key.view(); });
    return found == table.end() ? nullptr : &*found;
}

bool is_separator(char c) {
    return core::text::is_space(c) || c == ',' || c == '=';
}

std::string_view take_part(std::string_view& rest) {
    const auto begin = std::find_if_not(rest.begin(), rest.end(), is_separator);
    const auto end = std::find_if(begin, rest.end(), is_separator);
    const std::string_view part(begin, end);
    rest.remove_prefix(static_cast<std::size_t>(end - rest.begin()));
    return part;
}

bool has_sign_after(std::string_view part) {
    return part.ends_with('+') || part.ends_with('-');
}

// "1+" and "2-", and a minus of typography before the digits, which alone are read as they are by nobody else.
std::optional<std::int32_t> read_number(std::string_view part) {
    if (has_sign_after(part) && part.front() >= '0' && part.front() <= '9') {
        return read_int32(std::string(1, part.back()) + std::string(part.substr(0, part.size() - 1)));
    }
    for (const std::string_view minus : {"\u2212", "\u2013", "\u2014"}) {
        if (part.starts_with(minus)) {
            return read_int32("-" + std::string(part.substr(minus.size())));
        }
    }
    return read_int32(part);
}

class Words {
public:
    explicit Words(std::string_view words) : words_(words) {}

    std::optional<ChargeWords> read() {
        std::string_view rest = words_;
        while (!charge_ || !multiplicity_) {
            const std::string_view part = take_part(rest);
            if (part.empty() || !take(part)) {
                return std::nullopt;
            }
        }
        const bool goes_on = !rest.empty() && !core::text::is_space(rest.front());
        if (goes_on || *multiplicity_ < 1) {
            return std::nullopt;
        }
        ChargeWords found{*charge_, *multiplicity_, words_.substr(0, words_.size() - rest.size()), {}};
        found.wrong = first_wrong(found.text);
        return found;
    }

private:
    bool take(std::string_view part) {
        if (const NamedValue* const label = find(labels, part)) {
            return std::exchange(label_, label->meaning) == Meaning::none;
        }
        if (const NamedValue* const named = find(named_values, part)) {
            return give(named->meaning, named->value);
        }
        const std::optional<std::int32_t> number = read_number(part);
        const Meaning unnamed = charge_ ? Meaning::multiplicity : Meaning::charge;
        const Meaning meaning = label_ == Meaning::none ? unnamed : label_;
        const bool is_fit = meaning == Meaning::charge || !has_sign_after(part);
        return number && is_fit && give(meaning, *number);
    }

    bool give(Meaning meaning, std::int32_t value) {
        std::optional<std::int32_t>& taker = meaning == Meaning::charge ? charge_ : multiplicity_;
        label_ = Meaning::none;
        if (taker) {
            return false;
        }
        taker = value;
        return true;
    }

    static std::string_view first_wrong(std::string_view text) {
        std::string_view word = core::text::take_word(text);
        while (read_int32(word)) {
            word = core::text::take_word(text);
        }
        return word;
    }

    std::string_view words_;
    Meaning label_ = Meaning::none;
    std::optional<std::int32_t> charge_;
    std::optional<std::int32_t> multiplicity_;
};

}  // namespace

std::optional<ChargeWords> read_charge_words(std::string_view words) {
    return Words(words).read();
}

}  // namespace velk::input::amesp
