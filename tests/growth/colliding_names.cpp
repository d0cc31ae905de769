// The hash of GCC's library takes eight bytes at a time by steps that can be undone: whatever the first eight bytes of
// a text of sixteen are, there are eight more that lead to a chosen hash.
#include "growth/colliding_names.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace velk::test {
namespace {

constexpr std::uint64_t factor = 0xc6a4a7935bd1e995U;
constexpr std::uint64_t seed = 0xc70f6907U;
constexpr std::size_t block = sizeof(std::uint64_t);

constexpr std::uint64_t inverse() {
    std::uint64_t found = factor;
    for (int bits = 3; bits < 64; bits *= 2) {
        found *= 2 - factor * found;
    }
    return found;
}

std::uint64_t mixed(std::uint64_t bytes) {
    bytes *= factor;
    return (bytes ^ bytes >> 47U) * factor;
}

std::uint64_t unmixed(std::uint64_t bytes) {
    bytes *= inverse();
    return (bytes ^ bytes >> 47U) * inverse();
}

// Of bytes of 128 and above those that begin no character of UTF-8: no such name looks like what is invisible.
bool stands_in_a_name(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x80 && byte <= 0xC1) || byte >= 0xF5 || (c >= '0' && c <= '9') || (c >= '_' && c <= '~');
}

}  // namespace

std::vector<std::string> colliding_names(std::size_t n, std::string_view before) {
    std::vector<std::string> names;
    for (std::size_t i = 0; names.size() < n; ++i) {
        std::string text(2 * block, 'a');
        before.copy(text.data(), before.size());
        std::size_t rest = i;
        for (std::size_t place = before.size(); place < block; rest /= 26) {
            text[place++] = static_cast<char>('a' + rest % 26);
        }
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data(), block);
        bytes = unmixed((seed ^ text.size() * factor ^ mixed(bytes)) * factor);
        std::memcpy(text.data() + block, &bytes, block);
        if (rest == 0 && std::all_of(text.begin() + block, text.end(), stands_in_a_name)) {
            names.push_back(text.substr(before.size()));
        }
    }
    return names;
}

}  // namespace velk::test
