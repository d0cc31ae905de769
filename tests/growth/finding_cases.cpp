// Texts full of names that are to be compared with those of a schema that knows many.
#include "growth/cases.hpp"
#include "growth/colliding_names.hpp"

namespace velk::test {
namespace {

using std::size_t;

// Lines with names that meet in one place of a hash table as soon as the mark of their kind stands before them.
std::function<std::string(size_t)> colliding(const std::string& mark, const std::string& blank) {
    return [=](size_t n) {
        const std::vector<std::string> names = colliding_names(n, mark);
        return repeated(n, [&](size_t i) { return mark + blank + names[i] + "\n"; });
    };
}

}  // namespace

std::string yaml_of_many_names(size_t n) {
    return "directives:\n" + repeated(n, "  name?: {}\n") +                                            //
           "method_tokens:\n" + repeated(n, "  tok?: {category: method}\n") +                          //
           "method_prefixes: {u: {category: method}}\n" +                                              //
           "sections:\n" + repeated(n, "  once?: {parse_mode: key_value, allow_multiple: false}\n") +  //
           "  many: {parse_mode: key_value, entries: {" + repeated(n, "entry?: {}, ") + "}}\n" +       //
           repeated(n, "  long_holder_?: {parse_mode: key_value, entries: {other?: {}}}\n");
}

const std::vector<TextCase>& finding_cases() {
    static const std::vector<TextCase> cases = {
        {"directives that collide", colliding("%", " ")},
        {"tokens that collide", colliding("!", " ")},
        {"sections that stand twice",
         [](size_t n) { return repeated(n, ">once?\nend\n") + repeated(n, ">once?\nend\n"); }},
        {"misspelt directives", lines("", "% nmae? 1\n")},
        {"misspelt tokens", lines("", "! tko?\n")},
        {"misspelt tokens with a prefix", lines("", "! utko?\n")},
        {"misspelt sections", lines("", ">onec?\nend\n")},
        {"misspelt entries", lines(">many\n", "etnry? 1\n", "end\n")},
        {"entries of other sections", lines(">many\n", "other? 1\n", "end\n")},
        {"far from every section", lines("", ">quite_unlike_?\nend\n")},
    };
    return cases;
}

}  // namespace velk::test
