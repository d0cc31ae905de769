// Near names by edit distance.
#include "diagnostics/near_names.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

namespace velk::input::amesp {
namespace {

constexpr std::size_t longest_name = 48;  // a longer one is no misspelt keyword
constexpr std::size_t most_edits = 2;
constexpr std::size_t longest_known = longest_name + most_edits;

// Insertions, deletions, substitutions and swaps of neighbours that turn one text into the other; any number above
// `most` when there are more.
std::size_t edit_distance(std::string_view a, std::string_view b, std::size_t most) {
    using Row = std::array<std::size_t, longest_known + 1>;
    std::array<Row, 3> rows;
    std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
    std::size_t least_before = 0;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        const Row& before = rows[(i + 1) % 3];
        const Row& previous = rows[(i + 2) % 3];
        Row& current = rows[i % 3];
        current[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t substitution = previous[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, substitution});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                current[j] = std::min(current[j], before[j - 2] + 1);
            }
            least = std::min(least, current[j]);
        }
        if (std::min(least, least_before) > most) {  // what follows is made of the last two rows
            return least;
        }
        least_before = least;
    }
    return rows[a.size() % 3][b.size()];
}

std::size_t farthest(std::string_view name) {
    constexpr std::size_t shortest_for_two = 6;
    return name.size() < shortest_for_two ? 1 : most_edits;
}

// In ascending order.
std::vector<std::string_view> each_once(std::vector<std::string_view> names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

// Gathers the candidates nearest to a name, none farther away than `most` edits.
class Nearest {
public:
    Nearest(std::string_view name, std::size_t most) : name_(name), best_(most) {}

    void offer(std::string_view candidate) {
        const std::size_t difference =
            std::max(candidate.size(), name_.size()) - std::min(candidate.size(), name_.size());
        if (difference > best_) {
            return;
        }
        const std::size_t distance = edit_distance(name_, candidate, best_);
        if (distance < best_) {
            best_ = distance;
            found_.clear();
        }
        if (distance == best_) {
            found_.push_back(candidate);
        }
    }

    bool empty() const { return found_.empty(); }
    std::vector<std::string_view> in_order() && { return each_once(std::move(found_)); }

private:
    std::string_view name_;
    std::size_t best_;
    std::vector<std::string_view> found_;
};

// Calls `use` with the hash of `text`, and of what is left of it without any of its letters from `begin` on, as many of
// them as `deletions` says.
template <class Use>
void for_each_rest(const std::string& text, std::size_t deletions, const Use& use, std::size_t begin = 0) {
    use(std::hash<std::string>()(text));
    for (std::size_t place = begin; deletions > 0 && place < text.size(); ++place) {
        std::string rest = text;
        for_each_rest(rest.erase(place, 1), deletions - 1, use, place);
    }
}

}  // namespace

NearNames::NearNames(std::vector<std::string> known, std::size_t comparisons)
    : by_length_(longest_known + 1), comparisons_left_(comparisons) {
    for (std::string& name : known) {
        if (name.size() <= longest_known) {
            by_length_[name.size()].push_back(std::move(name));
        }
    }
}

std::vector<std::string_view> NearNames::nearest(std::string_view name) & {
    if (name.empty() || name.size() > longest_name) {
        return {};
    }
    const std::size_t most = farthest(name);
    const auto begin = by_length_.begin() + static_cast<std::ptrdiff_t>(name.size() - std::min(most, name.size()));
    const auto end = by_length_.begin() + static_cast<std::ptrdiff_t>(name.size() + most + 1);
    const std::size_t count = std::accumulate(begin, end, std::size_t{0},
                                              [](std::size_t sum, const auto& names) { return sum + names.size(); });
    if (count > comparisons_left_) {
        return nearest_by_rests(name, most);
    }
    comparisons_left_ -= count;
    Nearest nearest(name, most);
    for (auto names = begin; names != end; ++names) {
        std::for_each(names->begin(), names->end(), [&](const std::string& known) { nearest.offer(known); });
    }
    return std::move(nearest).in_order();
}

std::vector<std::string_view> NearNames::nearest_by_rests(std::string_view name, std::size_t most) {
    for (std::size_t edits = 1; edits <= most; ++edits) {
        Nearest nearest(name, edits);
        for (const std::string_view known : with_rests_of(name, edits)) {
            nearest.offer(known);
        }
        if (!nearest.empty()) {
            return std::move(nearest).in_order();
        }
    }
    return {};
}

// The known names that share a rest with `name`, each once.
std::vector<std::string_view> NearNames::with_rests_of(std::string_view name, std::size_t deletions) {
    const std::vector<Rest>& rests = rests_after(deletions);
    std::vector<std::string_view> names;
    for_each_rest(std::string(name), deletions, [&](std::size_t hash) {
        auto rest = std::lower_bound(rests.begin(), rests.end(), hash,
                                     [](const Rest& known, std::size_t wanted) { return known.first < wanted; });
        for (; rest != rests.end() && rest->first == hash; ++rest) {
            names.push_back(rest->second);
        }
    });
    return each_once(std::move(names));
}

const std::vector<NearNames::Rest>& NearNames::rests_after(std::size_t deletions) {
    std::optional<std::vector<Rest>>& rests = rests_[deletions - 1];
    if (!rests) {
        rests.emplace();
        for (std::size_t size = 0; size <= longest_name + deletions; ++size) {
            for (const std::string& name : by_length_[size]) {
                for_each_rest(name, deletions, [&](std::size_t hash) { rests->emplace_back(hash, name); });
            }
        }
        std::sort(rests->begin(), rests->end(), [](const Rest& a, const Rest& b) { return a.first < b.first; });
    }
    return *rests;
}

}  // namespace velk::input::amesp
