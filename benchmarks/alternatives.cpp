#include "alternatives.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace velk::bench {

std::string coordinate_text(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 10);
    return {buffer.data(), end};
}

bool is_near(double a, double b) {
    return std::abs(a - b) <= 1e-12 * std::max(std::abs(a), std::abs(b));
}

bool is_same(const std::vector<Site>& sites, const std::vector<AtomRecord>& atoms) {
    return std::equal(sites.begin(), sites.end(), atoms.begin(), atoms.end(),
                      [](const Site& site, const AtomRecord& atom) {
                          return site.symbol == atom.symbol && is_near(site.x, atom.x) && is_near(site.y, atom.y) &&
                                 is_near(site.z, atom.z);
                      });
}

}  // namespace velk::bench
