// Canonical names, categories and known names.
#include "schema/queries.hpp"

#include <algorithm>
#include <utility>

#include "schema/document_rules.hpp"

namespace velk::input::amesp {
namespace queries {
namespace {

constexpr std::string_view no_category = "other";

// The token as a prefix followed by a base token of the category that the prefix applies to. The prefixes stand longest
// first, and the first that fits wins.
const MethodPrefixSpec* find_prefix(const InputSchema::Impl& tables, std::string_view key, const MethodSpec*& base) {
    for (const MethodPrefixSpec& prefix : tables.method_prefixes) {
        if (key.size() <= prefix.prefix.size() || !key.starts_with(prefix.prefix)) {
            continue;
        }
        const std::string_view rest = key.substr(prefix.prefix.size());
        const std::string* const alias = find(tables.method_token_aliases, rest);
        base = find(tables.method_tokens, alias != nullptr ? std::string_view(*alias) : rest);
        if (base != nullptr && base->category == prefix.applies_to_category) {
            return &prefix;
        }
    }
    return nullptr;
}

}  // namespace

std::string_view canonical(const StringMap<std::string>& aliases, const Key& key) {
    const std::string* const target = find(aliases, key.view());
    return target != nullptr ? std::string_view(*target) : key.view();
}

const ValueSpec* find_directive(const InputSchema::Impl& tables, std::string_view name) {
    const Key key(name);
    return find(tables.directives, canonical(tables.directive_aliases, key));
}

const SectionSpec* find_section(const InputSchema::Impl& tables, std::string_view name) {
    const Key key(name);
    return find(tables.sections, canonical(tables.section_aliases, key));
}

const ValueSpec* find_entry(const SectionSpec& section, std::string_view name) {
    const Key key(name);
    return find(section.entries, canonical(section.entry_aliases, key));
}

Match<ValueSpec> match_directive(const InputSchema::Impl& tables, const Key& key) {
    return match(tables.directive_aliases, tables.directives, key);
}

Match<SectionSpec> match_section(const InputSchema::Impl& tables, const Key& key) {
    return match(tables.section_aliases, tables.sections, key);
}

Match<ValueSpec> match_entry(const SectionSpec& section, const Key& key) {
    return match(section.entry_aliases, section.entries, key);
}

TokenMatch match_method_token(const InputSchema::Impl& tables, const Key& key) {
    if (const std::string* const target = find(tables.method_token_aliases, key.view())) {
        const MethodSpec* const spec = find(tables.method_tokens, *target);
        return {{}, *target, spec != nullptr ? std::string_view(spec->category) : no_category, spec != nullptr};
    }
    const MethodSpec* base = nullptr;
    if (const MethodPrefixSpec* const prefix = find_prefix(tables, key.view(), base)) {
        return {prefix->prefix, base->name, prefix->category, true};
    }
    return {{}, key.view(), no_category, false};
}

std::string TokenMatch::canonical() const {
    return prefix.empty() ? std::string(base) : std::string(prefix).append(base);
}

}  // namespace queries

namespace {

template <class Value>
std::vector<std::string> sorted_keys(const StringMap<Value>& table) {
    std::vector<std::string> keys;
    keys.reserve(table.size());
    for (const auto& [key, value] : table) {
        keys.push_back(key);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

}  // namespace

InputSchema::InputSchema() : InputSchema(nullptr) {}

InputSchema::InputSchema(std::shared_ptr<const Impl> tables)
    : tables_(tables != nullptr ? std::move(tables) : std::make_shared<const Impl>()),
      rules_(std::make_shared<const DocumentRules>(*tables_)) {}

bool InputSchema::empty() const {
    return tables_->directives.empty() && tables_->method_tokens.empty() && tables_->sections.empty();
}

std::string InputSchema::canonical_directive(std::string_view name) const {
    const Key key(name);
    return std::string(queries::canonical(tables_->directive_aliases, key));
}

std::string InputSchema::canonical_section(std::string_view name) const {
    const Key key(name);
    return std::string(queries::canonical(tables_->section_aliases, key));
}

std::string InputSchema::canonical_method_token(std::string_view token) const {
    const Key key(token);
    return queries::match_method_token(*tables_, key).canonical();
}

std::string InputSchema::canonical_entry(std::string_view section, std::string_view entry) const {
    const Key key(entry);
    const SectionSpec* const spec = queries::find_section(*tables_, section);
    return std::string(spec != nullptr ? queries::canonical(spec->entry_aliases, key) : key.view());
}

std::string InputSchema::method_token_category(std::string_view token) const {
    const Key key(token);
    return std::string(queries::match_method_token(*tables_, key).category);
}

bool InputSchema::is_known_directive(std::string_view name) const {
    return queries::find_directive(*tables_, name) != nullptr;
}

bool InputSchema::is_known_section(std::string_view name) const {
    return queries::find_section(*tables_, name) != nullptr;
}

bool InputSchema::is_known_method_token(std::string_view token) const {
    const Key key(token);
    return queries::match_method_token(*tables_, key).known;
}

bool InputSchema::is_known_entry(std::string_view section, std::string_view entry) const {
    const SectionSpec* const spec = queries::find_section(*tables_, section);
    return spec != nullptr && queries::find_entry(*spec, entry) != nullptr;
}

SectionParseMode InputSchema::section_parse_mode(std::string_view name) const {
    const SectionSpec* const spec = queries::find_section(*tables_, name);
    return spec != nullptr ? spec->parse_mode : SectionParseMode::raw;
}

std::vector<std::string> InputSchema::known_directives() const {
    return sorted_keys(tables_->directives);
}

std::vector<std::string> InputSchema::known_sections() const {
    return sorted_keys(tables_->sections);
}

std::vector<std::string> InputSchema::known_method_tokens() const {
    return sorted_keys(tables_->method_tokens);
}

}  // namespace velk::input::amesp
