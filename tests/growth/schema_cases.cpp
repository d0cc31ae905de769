// Schema files that are large in one way each.
#include "growth/cases.hpp"

namespace velk::test {

const std::vector<SchemaCase>& schema_cases() {
    static const std::vector<SchemaCase> cases = {
        {"directives", lines("directives:\n", "  name?: {value_type: integer, min: 1, max: 2e3}\n")},
        {"aliases", lines("directives:\n  a:\n    aliases:\n", "      - alias?\n")},
        {"allowed values", lines("directives:\n  a:\n    allowed:\n", "      - value?\n")},
        {"allowed values in one line", lines("directives: {a: {allowed: [x", ", v?", "]}}")},
        {"one name many times", lines("directives:\n", "  a: {}\n")},
        {"method tokens", lines("method_tokens:\n", "  token?: {category: basis, aliases: [t?]}\n")},
        {"prefixes", lines("method_prefixes:\n", "  p?: {category: method}\n")},
        {"sections", lines("sections:\n", "  name?: {parse_mode: raw}\n")},
        {"entries", lines("sections:\n  s:\n    entries:\n", "      e?: {required: true}\n")},
        {"unknown keys", lines("", "key?: [value]\n")},
        {"comments", lines("", "# a comment\n")},
        {"blank lines", lines("directives:\n", "\n")},
        {"one long scalar", lines("directives: {a: {value_type: ",
                                  "0123456789012345678901234567890123456789012345678901234567890123456789", "}}")},
        {"one long quoted scalar",
         lines("directives: {a: {value_type: \"",
               "0123456789012345678901234567890123456789012345678901234567890123456789", "\"}}")},
        {"anchors", lines("x: &a {value_type: real}\ndirectives:\n", "  d?: *a\n")},
    };
    return cases;
}

}  // namespace velk::test
