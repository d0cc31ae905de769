// Random schemas as YAML, sound and unsound ones.
#include "oracle/random_yaml.hpp"

#include <vector>

namespace velk::oracle {

namespace {

using Words = std::vector<std::string>;

class Writer {
public:
    explicit Writer(Chance& chance) : chance_(chance) {}

    std::string text() {
        static const Words keys = {"directives", "method_tokens", "method_prefixes", "sections",  "directives",
                                   "sections",   "Sections",      "other",           "[sections]"};
        if (chance_.one_in(40)) {
            return chance_.of(Words{"", " \n", "word", "[a, b]", "~", "{", "# none", "directives", "a: b: c"});
        }
        std::string text;
        for (std::size_t left = 1 + chance_.below(4); left > 0; --left) {
            text += chance_.of(keys) + ": " + (chance_.one_in(20) ? scalar() : mapping(section)) + "\n";
        }
        return text;
    }

private:
    // What a mapping of names holds bodies of; sections hold entries in turn.
    static constexpr int section = 1;
    static constexpr int entry = 0;

    std::string scalar() {
        static const Words scalars = {"a",         "B ",   "\" C\"", "~",        "null",  "1",       "-0.5", "1e3",
                                      "0x10",      ".inf", "-.Inf",  ".nan",     "1e400", "5.",      "+1",   "1_0",
                                      "true",      "No",   "on",     "maybe",    "''",    "!!str 1", "enum", "Integer",
                                      "1 2",       "'1 '", "00.1",   "xyz",      "e\xff", "raw",     "-",    "--1",
                                      "key-value", "'-1'", "1.2.3",  "\"\\t4\"", "'.5'"};
        return chance_.of(scalars);
    }

    std::string sequence() {
        std::string text = "[";
        for (std::size_t left = chance_.below(4); left > 0; --left) {
            text += (chance_.one_in(8) ? "{x: y}" : scalar()) + ", ";
        }
        return text + "]";
    }

    std::string value() {
        switch (chance_.below(8)) {
            case 0:
                return sequence();
            case 1:
                return chance_.one_in(2) ? "{a: b}" : "{}";
            default:
                return scalar();
        }
    }

    std::string value_of(const std::string& field) {
        static const Words flags = {"true", "false", "yes", "No", "ON", "off", "~", "[maybe]", "y", "N"};
        static const Words modes = {"key_value", "KEY-Value", "cartesian_coordinates", "coordinates", "xyz", "'raw '"};
        static const Words types = {"integer", "Int", "real", "double", "'FLOAT '", "boolean", "enum", "string"};
        if ((field == "required" || field == "allow_multiple") && !chance_.one_in(40)) {
            return chance_.of(flags);
        }
        if (field == "parse_mode" && !chance_.one_in(6)) {
            return chance_.of(modes);
        }
        if (field == "value_type" && !chance_.one_in(6)) {
            return chance_.of(types);
        }
        return value();
    }

    std::string body(int depth) {
        static const Words fields = {
            "value_type", "allowed", "min", "max",     "required",       "aliases", "category",
            "parse_mode", "entries", "Min", "aliases", "allow_multiple", "min",     "applies_to_category"};
        if (chance_.one_in(60)) {
            return scalar();
        }
        if (chance_.one_in(8)) {
            return chance_.of(Words{"", "~", "[]", "[a, {aliases: b}]"});
        }
        std::string text = "{";
        for (std::size_t left = chance_.below(6); left > 0; --left) {
            const std::string& field = chance_.of(fields);
            text += field + ": ";
            text +=
                (field == "entries" && depth > entry && !chance_.one_in(8) ? mapping(entry) : value_of(field)) + ", ";
        }
        return text + "}";
    }

    std::string mapping(int depth) {
        static const Words names = {"a",     "A",   "b",   "\" B \"", "c", "xyz", "hf", "~",
                                    "? [x]", "'1'", "key", "\"a b\"", "u", "ro",  "''"};
        std::string text = "{";
        for (std::size_t left = chance_.below(5); left > 0; --left) {
            text += chance_.of(names) + " : " + body(depth) + ", ";
        }
        return text + "}";
    }

    Chance& chance_;
};

}  // namespace

std::string random_yaml(Chance& chance) {
    return Writer(chance).text();
}

}  // namespace velk::oracle
