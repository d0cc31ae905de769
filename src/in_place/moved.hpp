// Which elements of an old list a new list has at another place.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "in_place/align.hpp"

namespace velk::input::amesp {

// For every new element whose partner has another key, or that has none: an old element with its key that is nobody's
// equal partner, each at most once; otherwise `no_partner`. Time is that of sorting the elements that differ.
// The keys are given as in the alignment.
template <class OldKey, class NewKey, class Same>
std::vector<std::size_t> moved_from(std::size_t old_size, const std::vector<std::size_t>& partners_of_new,
                                    const OldKey& old_key, const NewKey& new_key, const Same& same) {
    using Keyed = std::pair<std::size_t, std::size_t>;  // hash of a key, and where the key stands
    const std::hash<std::string> hash;
    std::vector<bool> stays(old_size, false);
    std::vector<Keyed> new_keys;
    for (std::size_t i = 0; i < partners_of_new.size(); ++i) {
        const std::size_t partner = partners_of_new[i];
        if (partner != no_partner && same(partner, i)) {
            stays[partner] = true;
        } else {
            new_keys.emplace_back(hash(new_key(i)), i);
        }
    }
    std::vector<Keyed> old_keys;
    for (std::size_t i = 0; i < old_size; ++i) {
        if (!stays[i]) {
            old_keys.emplace_back(hash(old_key(i)), i);
        }
    }
    std::sort(old_keys.begin(), old_keys.end());
    std::sort(new_keys.begin(), new_keys.end());
    std::vector<std::size_t> result(partners_of_new.size(), no_partner);
    auto old_at = old_keys.begin();
    for (const auto& [key, index] : new_keys) {
        old_at = std::find_if(old_at, old_keys.end(), [key = key](const Keyed& old) { return old.first >= key; });
        if (old_at != old_keys.end() && old_at->first == key && same(old_at->second, index)) {
            result[index] = old_at++->second;
        }
    }
    return result;
}

}  // namespace velk::input::amesp
