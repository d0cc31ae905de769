// The known names nearest to a misspelt one.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velk::input::amesp {

// Compares names with all that are known, as long as that is little work. After that it looks them up in a table of
// what is left of the known names without one or two letters: two names that are so near have that in common. So the
// work is in proportion to the names asked for, as it is to those known; the answers are the same.
class NearNames {
public:
    static constexpr std::size_t usual_comparisons = std::size_t{1} << 16;

    explicit NearNames(std::vector<std::string> known, std::size_t comparisons = usual_comparisons);
    NearNames(NearNames&&) = default;  // not copied: the views would be into the other one
    NearNames& operator=(NearNames&&) = default;
    ~NearNames() = default;

    // Those that take the fewest insertions, deletions, substitutions and swaps of neighbours, at most two, or one
    // for a `name` of up to five letters, in ascending order. The views are into the known names.
    std::vector<std::string_view> nearest(std::string_view name) &;

private:
    // The hash of what is left of a known name, and that name.
    using Rest = std::pair<std::size_t, std::string_view>;
    static constexpr std::size_t most_deletions = 2;

    std::vector<std::string_view> nearest_by_rests(std::string_view name, std::size_t most);
    std::vector<std::string_view> with_rests_of(std::string_view name, std::size_t deletions);
    const std::vector<Rest>& rests_after(std::size_t deletions);

    std::vector<std::vector<std::string>> by_length_;
    std::size_t comparisons_left_;
    std::array<std::optional<std::vector<Rest>>, most_deletions>
        rests_;  // after up to one and up to two; made when needed
};

}  // namespace velk::input::amesp
