// Random choices that are the same on every machine for the same seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace velk::oracle {

class Chance {
public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    bool one_in(std::size_t count) { return below(count) == 0; }

    template <class T>
    const T& of(const std::vector<T>& items) {
        return items[below(items.size())];
    }

    std::string case_mixed(std::string text) {
        for (char& byte : text) {
            const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
            byte = letter && one_in(2) ? static_cast<char>(byte ^ 0x20) : byte;
        }
        return text;
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace velk::oracle
