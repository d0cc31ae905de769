// The tables of a schema, for callers that fill one by hand or list what it knows.
//
// All keys and stored names are expected to be normalised: trimmed and in lower case (ASCII).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>
#include <velk/input/amesp/string_map.hpp>

namespace velk::input::amesp {

// The value of one directive or one section entry.
struct ValueSpec {
    std::string name;
    std::string value_type = "string";  // integer int real double float boolean bool enum; any other: not checked
    std::vector<std::string> allowed;   // the values of an enum
    std::optional<double> min;          // of integers and reals, both bounds included
    std::optional<double> max;
    bool required = false;  // of an entry: its section must hold it

    bool operator==(const ValueSpec&) const = default;
};

// One method-line token.
struct MethodSpec {
    std::string name;
    std::string category = "other";

    bool operator==(const MethodSpec&) const = default;
};

// A prefix that makes further tokens from those of one category, as "u" makes "ub3lyp" from "b3lyp".
struct MethodPrefixSpec {
    std::string prefix;
    std::string category = "method";             // of the token written with the prefix
    std::string applies_to_category = "method";  // that the token without it must have

    bool operator==(const MethodPrefixSpec&) const = default;
};

// One section.
struct SectionSpec {
    std::string name;
    SectionParseMode parse_mode = SectionParseMode::raw;
    bool required = false;
    bool allow_multiple = true;
    StringMap<ValueSpec> entries;
    StringMap<std::string> entry_aliases;  // to canonical names; every entry also maps to itself

    bool operator==(const SectionSpec&) const = default;
};

// Fill one, then hand it over as a pointer to const: nothing changes it afterwards.
struct InputSchema::Impl {
    StringMap<ValueSpec> directives;
    StringMap<std::string> directive_aliases;  // to canonical names; every directive also maps to itself
    StringMap<MethodSpec> method_tokens;
    StringMap<std::string> method_token_aliases;    // likewise
    std::vector<MethodPrefixSpec> method_prefixes;  // longest prefix first
    StringMap<SectionSpec> sections;
    StringMap<std::string> section_aliases;  // likewise

    bool operator==(const Impl&) const = default;
};

}  // namespace velk::input::amesp
