// Which elements of an old list a new list goes on with.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velk::input::amesp {

inline constexpr std::size_t no_partner = static_cast<std::size_t>(-1);

// Pairs of (old index, new index), ascending in both. Elements with the same key are paired first: those at both ends,
// then those whose key occurs once on either side, as far as their order agrees. What lies between two such pairs is
// paired from its end as long as the keys agree, then by position. Time is that of sorting the elements that differ.
// `old_key` and `new_key` give a key as a string; `same` says of an old and a new element whether their keys are equal.
template <class OldKey, class NewKey, class Same>
class Aligner {
public:
    Aligner(std::size_t old_size, std::size_t new_size, OldKey old_key, NewKey new_key, Same same)
        : partners_(new_size, no_partner),
          old_stop_(old_size),
          new_stop_(new_size),
          old_key_(old_key),
          new_key_(new_key),
          same_(same) {}

    // For every new element the old one it goes on with, or `no_partner`.
    std::vector<std::size_t> run() {
        take_common_ends();
        std::size_t old_begin = begin_;
        std::size_t new_begin = begin_;
        for (const auto& [old_index, new_index] : anchors()) {
            pair_gap(old_begin, old_index, new_begin, new_index);
            partners_[new_index] = old_index;
            old_begin = old_index + 1;
            new_begin = new_index + 1;
        }
        pair_gap(old_begin, old_stop_, new_begin, new_stop_);
        return std::move(partners_);
    }

private:
    using Pair = std::pair<std::size_t, std::size_t>;

    void take_common_ends() {
        while (begin_ < old_stop_ && begin_ < new_stop_ && same_(begin_, begin_)) {
            partners_[begin_] = begin_;
            ++begin_;
        }
        while (begin_ < old_stop_ && begin_ < new_stop_ && same_(old_stop_ - 1, new_stop_ - 1)) {
            --old_stop_;
            --new_stop_;
            partners_[new_stop_] = old_stop_;
        }
    }

    // Hash of a key, and where the key stands.
    using Keyed = std::pair<std::size_t, std::size_t>;

    // The keys from `begin_` on whose hash occurs once, ascending.
    template <class Key>
    std::vector<Keyed> unique_keys(std::size_t stop, const Key& key) const {
        std::vector<Keyed> keys;
        keys.reserve(stop - begin_);
        for (std::size_t i = begin_; i < stop; ++i) {
            keys.emplace_back(std::hash<std::string>()(key(i)), i);
        }
        std::sort(keys.begin(), keys.end());
        std::vector<Keyed> unique;
        for (auto key_at = keys.begin(); key_at != keys.end();) {
            const auto next =
                std::find_if(key_at, keys.end(), [&](const Keyed& k) { return k.first != key_at->first; });
            if (next - key_at == 1) {
                unique.push_back(*key_at);
            }
            key_at = next;
        }
        return unique;
    }

    // The pairs of unique keys, reduced to the longest run that ascends on both sides.
    std::vector<Pair> anchors() const {
        const std::vector<Keyed> old_keys = unique_keys(old_stop_, old_key_);
        const std::vector<Keyed> new_keys = unique_keys(new_stop_, new_key_);
        std::vector<Pair> pairs;
        auto old_at = old_keys.begin();
        for (const auto& [hash, index] : new_keys) {
            while (old_at != old_keys.end() && old_at->first < hash) {
                ++old_at;
            }
            if (old_at != old_keys.end() && old_at->first == hash && same_(old_at->second, index)) {
                pairs.emplace_back(old_at->second, index);
            }
        }
        std::sort(pairs.begin(), pairs.end());
        return longest_ascending(pairs);
    }

    static std::vector<Pair> longest_ascending(const std::vector<Pair>& pairs) {
        std::vector<std::size_t> tails;  // of the best run of each length, the index of its last pair
        std::vector<std::size_t> previous(pairs.size(), no_partner);
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            const auto place =
                std::lower_bound(tails.begin(), tails.end(), pairs[i].second,
                                 [&](std::size_t tail, std::size_t value) { return pairs[tail].second < value; });
            if (place != tails.begin()) {
                previous[i] = *(place - 1);
            }
            if (place == tails.end()) {
                tails.push_back(i);
            } else {
                *place = i;
            }
        }
        std::vector<Pair> run;
        for (std::size_t i = tails.empty() ? no_partner : tails.back(); i != no_partner; i = previous[i]) {
            run.push_back(pairs[i]);
        }
        std::reverse(run.begin(), run.end());
        return run;
    }

    void pair_gap(std::size_t old_begin, std::size_t old_end, std::size_t new_begin, std::size_t new_end) {
        while (old_begin < old_end && new_begin < new_end && same_(old_end - 1, new_end - 1)) {
            partners_[--new_end] = --old_end;
        }
        while (old_begin < old_end && new_begin < new_end) {
            partners_[new_begin++] = old_begin++;
        }
    }

    std::vector<std::size_t> partners_;
    std::size_t begin_ = 0;
    std::size_t old_stop_;
    std::size_t new_stop_;
    OldKey old_key_;
    NewKey new_key_;
    Same same_;
};

}  // namespace velk::input::amesp
