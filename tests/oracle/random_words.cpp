// Random words of which names, values and lines are made.
#include "oracle/random_words.hpp"

#include <vector>

namespace velk::oracle {

using namespace std::string_literals;

std::string random_name(Chance& chance) {
    static const std::vector<std::string> names = {
        "xyz", "xyz",     "zmat", "scf",   "opt",   "a",  "b",   "c",  "ab",    "end",   "hf",
        "u",   "ro",      "r",    "uhf",   "rohf",  "rr", "ur",  "!",  "!!",    "%",     ">",
        "=",   "maxcore", "z\"",  "\xe9t", "i\xff", "#a", "//b", ";c", "a\0b"s, "coord", "zmatrix"};
    return chance.of(names);
}

std::string random_spelling(Chance& chance) {
    static const std::vector<std::string> prefixes = {"u", "r", "ro", "x", "!", "="};
    std::string name = random_name(chance);
    switch (chance.below(8)) {
        case 0:
        case 1:
            return chance.case_mixed(name);
        case 2:
            return chance.case_mixed(chance.of(prefixes) + name);
        case 3:
            return chance.of(prefixes) + chance.of(prefixes) + name;
        case 4:
            return name + random_name(chance);
        default:
            return name;
    }
}

std::string random_value(Chance& chance) {
    static const std::vector<std::string> words = {
        "",     "",     "on",    "OFF",     "True",  "false", "YES", "no",       "1",       "0",
        "y",    "2",    "= 5",   "=",       "a = b", "==",    "a b", "  ",       "a  b\tc", "a\vb c",
        "a\fb", "a\rb", "x # y", "\"a b\"", "end",   "!x",    "> y", "\xc3\xa9", "on\0"s,   "\x80"};
    switch (chance.below(4)) {
        case 0:
            return random_number(chance);
        case 1:
            return random_spelling(chance);
        default:
            return chance.of(words);
    }
}

std::string random_gap(Chance& chance) {
    static const std::vector<std::string> gaps = {" ", " ", " ", "  ", "\t", " \t ", "\v", "\f", "\r", " \v", "\r "};
    return chance.of(gaps);
}

std::string random_indent(Chance& chance) {
    return chance.one_in(3) ? random_gap(chance) : "";
}

}  // namespace velk::oracle
