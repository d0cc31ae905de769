// Texts of the input format in every style that it allows, drawn at random.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace velk::test {

// The same numbers on every platform for the same seed: no distribution of the standard library is used.
class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }
    bool one_in(std::size_t n) { return below(n) == 0; }
    template <class List>
    const auto& of(const List& list) {
        return list[below(list.size())];
    }

private:
    std::mt19937_64 engine_;
};

std::string random_blanks(Random& random);
std::string random_number(Random& random);
std::string random_document(Random& random);

}  // namespace velk::test
