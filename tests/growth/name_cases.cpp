// Families of names: what makes them differ stands at either end, in the middle or everywhere.
#include "growth/cases.hpp"

namespace velk::test {
namespace {

using std::size_t;

// `n` times `before` and `after` with the number between them, written with as many digits of `digits` as `width` says.
auto numbered(std::string before, size_t width, std::string after, std::string digits) {
    return [=](size_t n) {
        std::vector<std::string> names;
        for (size_t i = 0; i < n; ++i) {
            std::string number(width, digits.front());
            size_t rest = i;
            for (size_t place = width; rest > 0; rest /= digits.size()) {
                number[--place] = digits[rest % digits.size()];
            }
            names.push_back(before + number + after);
        }
        return names;
    };
}

const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
const std::string decimal = "0123456789";

}  // namespace

const std::vector<NameCase>& name_cases() {
    static const std::vector<NameCase> cases = {
        {"two letters", numbered("", 2, "", letters)},
        {"two letters after four", numbered("key_", 2, "", letters)},
        {"two letters after six", numbered("param_", 2, "", letters)},
        {"two letters after eight", numbered("keyword_", 2, "", letters)},
        {"two letters after many", numbered("a_long_prefix_of_many_names_", 2, "", letters)},
        {"two letters before eight", numbered("", 2, "_keyword", letters)},
        {"two letters in the middle", numbered("keyword_", 2, "_keyword", letters)},
        {"two letters in the middle of many", numbered("a_long_prefix_of_", 2, "_and_a_long_suffix", letters)},
        {"four digits", numbered("", 4, "", decimal)},
        {"eight digits", numbered("", 8, "", decimal)},
        {"ten digits", numbered("", 10, "", decimal)},
        {"sixteen digits", numbered("", 16, "", decimal)},
        {"thirty digits", numbered("", 30, "", decimal)},
        {"sixteen letters of two", numbered("", 16, "", "ab")},
        {"sixteen bytes of two", numbered("", 16, "", "a\xe1")},
    };
    return cases;
}

}  // namespace velk::test
