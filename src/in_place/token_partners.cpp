// Finds the method tokens of an edited document again among those of the text.
#include "in_place/token_partners.hpp"

#include <algorithm>
#include <cstdint>

#include "in_place/align.hpp"
#include "in_place/partners.hpp"

namespace velk::input::amesp::in_place {
namespace {

// The tokens between two pairs.
struct Gap {
    std::size_t old_begin;
    std::size_t old_end;
    std::size_t new_begin;
    std::size_t new_end;
};

// Pairs tokens, more with every call: a pair that was made stays.
class Pairing {
public:
    Pairing(const KeyedTokens& before, const KeyedTokens& after, std::vector<std::size_t> located)
        : before_(before), after_(after), partners_(std::move(located)) {}

    void pair_same() {
        for_each_gap([this](Gap gap) {
            pair_common_ends(gap);
            const std::size_t shorter = std::min(gap.old_end - gap.old_begin, gap.new_end - gap.new_begin);
            return shorter <= longest_compared ? pair_most(gap) : pair_far_apart(gap);
        });
    }

    void pair_by_position() {
        for_each_gap([this](Gap gap) {
            while (gap.old_begin < gap.old_end && gap.new_begin < gap.new_end) {
                partners_[gap.new_begin++] = gap.old_begin++;
            }
        });
    }

    std::vector<std::size_t> take() { return std::move(partners_); }

private:
    // Up to this many tokens are compared with each of the other list, which keeps the time in proportion to the
    // longer one; and so many fit into the byte that counts them.
    static constexpr std::size_t longest_compared = 64;

    // `visit` may pair the tokens of its gap.
    template <class Visit>
    void for_each_gap(Visit visit) {
        Gap gap{};
        for (; gap.new_end <= partners_.size(); ++gap.new_end) {
            const bool last = gap.new_end == partners_.size();
            gap.old_end = last ? before_.tokens.size() : partners_[gap.new_end];
            if (gap.old_end == no_partner) {
                continue;
            }
            if (gap.old_begin < gap.old_end && gap.new_begin < gap.new_end) {
                visit(gap);
            }
            gap.old_begin = gap.old_end + 1;
            gap.new_begin = gap.new_end + 1;
        }
    }

    bool same(std::size_t old_token, std::size_t new_token) const {
        return before_.keys[old_token] == after_.keys[new_token];
    }

    // They leave the gap.
    void pair_common_ends(Gap& gap) {
        const auto open = [&] { return gap.old_begin < gap.old_end && gap.new_begin < gap.new_end; };
        while (open() && same(gap.old_begin, gap.new_begin)) {
            partners_[gap.new_begin++] = gap.old_begin++;
        }
        while (open() && same(gap.old_end - 1, gap.new_end - 1)) {
            partners_[--gap.new_end] = --gap.old_end;
        }
    }

    // As many pairs as there can be.
    void pair_most(const Gap& gap) {
        const std::size_t width = gap.new_end - gap.new_begin + 1;
        std::vector<std::uint8_t> counts((gap.old_end - gap.old_begin + 1) * width);
        // How many pairs the tokens from these on have.
        const auto most = [&](std::size_t old_token, std::size_t new_token) -> std::uint8_t& {
            return counts[(old_token - gap.old_begin) * width + new_token - gap.new_begin];
        };
        for (std::size_t i = gap.old_end; i-- > gap.old_begin;) {
            for (std::size_t j = gap.new_end; j-- > gap.new_begin;) {
                most(i, j) = same(i, j) ? static_cast<std::uint8_t>(most(i + 1, j + 1) + 1)
                                        : std::max(most(i + 1, j), most(i, j + 1));
            }
        }
        std::size_t j = gap.new_begin;
        for (std::size_t i = gap.old_begin; i < gap.old_end && j < gap.new_end;) {
            if (same(i, j)) {
                partners_[j++] = i++;
            } else if (most(i + 1, j) >= most(i, j + 1)) {
                ++i;
            } else {
                ++j;
            }
        }
    }

    void pair_far_apart(const Gap& gap) {
        const auto old_key = [&](std::size_t i) -> const std::string& { return before_.keys[gap.old_begin + i]; };
        const auto new_key = [&](std::size_t i) -> const std::string& { return after_.keys[gap.new_begin + i]; };
        const auto same_key = [&](std::size_t i, std::size_t j) { return old_key(i) == new_key(j); };
        const std::vector<std::size_t> aligned =
            Aligner(gap.old_end - gap.old_begin, gap.new_end - gap.new_begin, old_key, new_key, same_key).run();
        for (std::size_t j = 0; j < aligned.size(); ++j) {
            if (aligned[j] != no_partner && same_key(aligned[j], j)) {
                partners_[gap.new_begin + j] = gap.old_begin + aligned[j];
            }
        }
    }

    const KeyedTokens& before_;
    const KeyedTokens& after_;
    std::vector<std::size_t> partners_;
};

}  // namespace

std::optional<std::vector<std::size_t>> token_partners(const KeyedTokens& before, const KeyedTokens& after) {
    std::optional<std::vector<std::size_t>> located = partners(before.tokens, after.tokens);
    if (!located) {
        return std::nullopt;
    }
    const bool set_anew = std::none_of(after.tokens.begin(), after.tokens.end(),
                                       [](const MethodToken& token) { return token.location.has_value(); });
    Pairing pairing(before, after, *std::move(located));
    pairing.pair_same();
    if (set_anew) {
        pairing.pair_by_position();
    }
    return pairing.take();
}

}  // namespace velk::input::amesp::in_place
