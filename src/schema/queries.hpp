// Look-ups in the tables that the public queries and the library's other rooms share.
#pragma once

#include <string>
#include <string_view>

#include <velk/input/amesp/schema_tables.hpp>

#include "model/key.hpp"

namespace velk::input::amesp::queries {

// What `key` is an alias of, else `key` itself. A view into the table or of `key`'s text.
std::string_view canonical(const StringMap<std::string>& aliases, const Key& key);

// The value stored under `name`, or null.
template <class Value>
const Value* find(const StringMap<Value>& table, std::string_view name) {
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

// What the tables hold under the canonical form of `name`, or null.
const ValueSpec* find_directive(const InputSchema::Impl& tables, std::string_view name);
const SectionSpec* find_section(const InputSchema::Impl& tables, std::string_view name);
const ValueSpec* find_entry(const SectionSpec& section, std::string_view name);

// What a table makes of a name: its canonical form and what is stored under the canonical form of that, or null.
template <class Value>
struct Match {
    std::string_view canonical;  // into the table of aliases or of the key's text
    const Value* spec = nullptr;
};
template <class Value>
Match<Value> match(const StringMap<std::string>& aliases, const StringMap<Value>& table, const Key& key) {
    const std::string_view name = canonical(aliases, key);
    // Most names stand for themselves, and then nothing is left to resolve.
    return {name, find(table, name == key.view() ? name : canonical(aliases, Key(name)))};
}
Match<ValueSpec> match_directive(const InputSchema::Impl& tables, const Key& key);
Match<SectionSpec> match_section(const InputSchema::Impl& tables, const Key& key);
Match<ValueSpec> match_entry(const SectionSpec& section, const Key& key);

// What the tables make of a method-line token. The views are into the tables, constants, or of the key's text.
struct TokenMatch {
    std::string_view prefix;  // of the canonical form; empty but for a prefixed token
    std::string_view base;    // the rest of the canonical form
    std::string_view category;
    bool known = false;

    std::string canonical() const;
};
TokenMatch match_method_token(const InputSchema::Impl& tables, const Key& key);

}  // namespace velk::input::amesp::queries
