// Random schemas as YAML, sound and unsound ones.
#include "oracle/random_yaml.hpp"

#include <algorithm>
#include <vector>

#include "oracle/yaml_encoding.hpp"

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
            text += properties("") + chance_.of(keys) + ": " +
                    (chance_.one_in(20) ? scalar() : mapping(section, chance_.one_in(2) ? 2 : in_flow)) + "\n";
        }
        return text;
    }

private:
    // What a mapping of names holds bodies of; sections hold entries in turn.
    static constexpr int section = 1;
    static constexpr int entry = 0;

    // Instead of the indentation of a block.
    static constexpr std::size_t in_flow = 0;

    // Mostly nothing; anchors are remembered. A tag is one that `tags` has.
    std::string properties(const std::string& tag) {
        std::string text;
        if (chance_.one_in(12)) {
            anchors_.push_back(chance_.of(Words{"a", "b", "long-anchor", "1", "\xc3\xa9"}));
            text = "&" + anchors_.back() + " ";
        }
        if (!tag.empty() && chance_.one_in(20)) {
            text = chance_.one_in(2) ? tag + " " + text : text + tag + (chance_.one_in(4) ? "   " : " ");
        }
        return text;
    }

    // Of an anchor before, mostly.
    std::string alias() {
        return "*" + (anchors_.empty() || chance_.one_in(100) ? std::string("a") : chance_.of(anchors_));
    }

    std::string block_scalar(std::size_t indentation) {
        const std::string line = "\n" + std::string(indentation + 2, ' ');
        const std::string head = chance_.of(Words{"|", ">", "|-", ">+"});
        return head + line + chance_.of(Words{"a", "1.5", "true", "key_value"}) + (chance_.one_in(2) ? line + "b" : "");
    }

    // The line end before an item of a block.
    std::string new_line(std::size_t indentation) {
        const char* const comment = chance_.one_in(20) ? " # a: comment" : "";
        return comment + std::string(chance_.one_in(20) ? "\n\n" : "\n") + std::string(indentation, ' ');
    }

    std::string scalar() {
        static const Words scalars = {"a",         "B ",   "\" C\"", "~",        "null",  "1",       "-0.5", "1e3",
                                      "0x10",      ".inf", "-.Inf",  ".nan",     "1e400", "5.",      "+1",   "1_0",
                                      "true",      "No",   "on",     "maybe",    "''",    "!!str 1", "enum", "Integer",
                                      "1 2",       "'1 '", "00.1",   "xyz",      "e\xff", "raw",     "-",    "--1",
                                      "key-value", "'-1'", "1.2.3",  "\"\\t4\"", "'.5'"};
        if (!anchors_.empty() && chance_.one_in(10)) {
            return alias() + " ";
        }
        return properties(chance_.of(Words{"!", "!!str", "!x", "!<y>", "!!null"})) +
               (chance_.one_in(40) ? "" : chance_.of(scalars));
    }

    std::string sequence(std::size_t indentation) {
        if (indentation == in_flow || chance_.one_in(2)) {
            std::string text = properties("!!seq") + "[";
            for (std::size_t left = chance_.below(4); left > 0; --left) {
                text += (chance_.one_in(8) ? chance_.of(Words{"{x: y}", "x: y", "? x", ": y"}) : scalar()) + ", ";
            }
            return text + "]";
        }
        std::string text = properties("!!seq");
        for (std::size_t left = 1 + chance_.below(3); left > 0; --left) {
            text += new_line(indentation) + "- " + (chance_.one_in(8) ? "x: y" : scalar());
        }
        return text;
    }

    std::string value(std::size_t indentation) {
        switch (chance_.below(8)) {
            case 0:
                return sequence(indentation);
            case 1:
                return chance_.one_in(2) ? "{a: b}" : "{}";
            case 2:
                return indentation == in_flow ? scalar() : block_scalar(indentation);
            default:
                return scalar();
        }
    }

    std::string value_of(const std::string& field, std::size_t indentation) {
        static const Words flags = {"true", "false", "yes", "No", "ON", "off", "~", "[maybe]", "y", "N"};
        static const Words modes = {"key_value", "KEY-Value", "cartesian_coordinates", "coordinates", "xyz", "'raw '"};
        static const Words types = {"integer", "Int", "real", "double", "'FLOAT '", "boolean", "enum", "string"};
        if ((field == "required" || field == "allow_multiple") && !chance_.one_in(40)) {
            return properties("!!bool") + chance_.of(flags);
        }
        if (field == "parse_mode" && !chance_.one_in(6)) {
            return chance_.of(modes);
        }
        if (field == "value_type" && !chance_.one_in(6)) {
            return chance_.of(types);
        }
        return value(indentation);
    }

    std::string field(int depth, std::size_t indentation) {
        static const Words fields = {
            "value_type", "allowed", "min", "max",     "required",       "aliases", "category",
            "parse_mode", "entries", "Min", "aliases", "allow_multiple", "min",     "applies_to_category"};
        const std::string& name = chance_.of(fields);
        const std::size_t inner = indentation == in_flow ? in_flow : indentation + 2;
        if (chance_.one_in(80)) {
            return "<<: " + (anchors_.empty() ? "{min: 1}" : alias());
        }
        return properties("!!str") + name + ": " +
               (name == "entries" && depth > entry && !chance_.one_in(8) ? mapping(entry, inner)
                                                                         : value_of(name, indentation));
    }

    std::string body(int depth, std::size_t indentation) {
        if (chance_.one_in(80)) {
            return scalar();
        }
        if (chance_.one_in(8)) {
            return chance_.of(Words{"", "~", "[]", "[a, {aliases: b}]"});
        }
        if (!anchors_.empty() && chance_.one_in(10)) {
            return alias();
        }
        const bool flow = indentation == in_flow || chance_.one_in(2);
        std::string text = properties("!!map") + (flow ? "{" : "");
        for (std::size_t left = chance_.below(6); left > 0; --left) {
            text += flow ? field(depth, in_flow) + " , " : new_line(indentation) + field(depth, indentation);
        }
        return text + (flow ? "}" : "");
    }

    std::string mapping(int depth, std::size_t indentation) {
        static const Words names = {"a",     "A",   "b",   "\" B \"", "c", "xyz", "hf", "~",
                                    "? [x]", "'1'", "key", "\"a b\"", "u", "ro",  "''"};
        if (!anchors_.empty() && chance_.one_in(20)) {
            return alias() + " ";
        }
        const bool flow = indentation == in_flow;
        std::string text = properties("!!map") + (flow ? "{" : "");
        for (std::size_t left = chance_.below(5); left > 0; --left) {
            const std::string name =
                anchors_.empty() || !chance_.one_in(20) ? properties("!") + chance_.of(names) : alias();
            if (flow) {
                text += name + " : " + body(depth, in_flow) + " , ";
            } else {
                const std::string colon = name.starts_with("? ") ? new_line(indentation) + ": " : " : ";
                text += new_line(indentation) + name + colon + body(depth, indentation + 2);
            }
        }
        return text + (flow ? "}" : "");
    }

    Chance& chance_;
    Words anchors_;
};

// Changes some bytes for the worse.
std::string damaged(std::string text, Chance& chance) {
    static const Words pieces = {":",   "{",   "}",    "[",  "]",  ",", "&",  "*",  "!",   "|",      ">",       "'",
                                 "\"",  "%",   "@",    "#",  "-",  "?", " ",  "\n", "\t",  "`",      "x",       "\r",
                                 "---", "...", "\n- ", ": ", "<<", "~", "\\", "*a", "&a ", "!!str ", "\\u0041", "\xff"};
    for (std::size_t left = 1 + chance.below(3); left > 0; --left) {
        const std::size_t place = chance.below(text.size() + 1);
        switch (chance.below(4)) {
            case 0:
                text.erase(place, 1 + chance.below(4));
                break;
            case 1:
                text.insert(place, text.substr(place / 2, chance.below(20)));
                break;
            default:
                text.insert(place, chance.of(pieces));
        }
    }
    return chance.one_in(8) ? text.substr(0, chance.below(text.size() + 1)) : text;
}

// As one document of several, or with what else may stand around it.
std::string framed(const std::string& text, Chance& chance) {
    static const Words heads = {"---\n",
                                "%YAML 1.2\n---\n",
                                "%TAG ! tag:x,\n---\n",
                                "--- # first\n",
                                "# a comment\n",
                                "%YAML 3.0\n---\n",
                                "%YAML 1.2 3\n---\n",
                                "--- &r\n",
                                "--- !!map\n",
                                "\n  \n"};
    static const Words tails = {"\n...\nmore: [", "\n---\nother: 1\n", "...\n", "\n# the end", "  ", "\n---\n"};
    return (chance.one_in(2) ? chance.of(heads) : "") + text + (chance.one_in(2) ? chance.of(tails) : "");
}

std::string with_carriage_returns(const std::string& text) {
    std::string result;
    for (const char byte : text) {
        result += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    return result;
}

std::string in_some_encoding(std::string text, Chance& chance) {
    std::replace(text.begin(), text.end(), '\xff', 'y');
    const std::size_t tail = text.find_last_of("\"' ");
    text.insert(tail == std::string::npos ? 0 : tail, chance.of(Words{"", "\xf0\x9f\x98\x80", "\xe2\x82\xac", "\x04"}));
    std::string result = encoded(text, {std::size_t{1} << chance.below(3), chance.one_in(2), !chance.one_in(3)});
    for (std::size_t left = result.empty() ? 0 : chance.below(3); left > 0 && chance.one_in(2); --left) {
        result[chance.below(result.size())] = static_cast<char>(static_cast<unsigned char>(chance.below(256)));
    }
    return chance.one_in(8) ? result.substr(0, chance.below(result.size() + 1)) : result;
}

}  // namespace

std::string random_yaml(Chance& chance) {
    std::string text = Writer(chance).text();
    if (chance.one_in(8)) {
        text = framed(text, chance);
    }
    if (chance.one_in(8)) {
        text = damaged(text, chance);
    }
    if (chance.one_in(10)) {
        text = with_carriage_returns(text);
    }
    return chance.one_in(10) ? in_some_encoding(text, chance) : text;
}

}  // namespace velk::oracle
