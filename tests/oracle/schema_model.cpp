// The model's answers to the questions that a schema is asked: every table is searched from its first row.
#include "oracle/schema_model.hpp"

#include "oracle/plain_text.hpp"

namespace velk::oracle {

namespace {

std::string alias_target_or_self(const input::amesp::StringMap<std::string>& aliases, const std::string& name) {
    const std::string* target = look_up(aliases, name);
    return target != nullptr ? *target : name;
}

}  // namespace

bool SchemaModel::empty() const {
    return tables_.directives.empty() && tables_.method_tokens.empty() && tables_.sections.empty();
}

std::string SchemaModel::canonical_directive(const std::string& name) const {
    return alias_target_or_self(tables_.directive_aliases, key(name));
}

std::string SchemaModel::canonical_section(const std::string& name) const {
    return alias_target_or_self(tables_.section_aliases, key(name));
}

SchemaModel::Prefixed SchemaModel::prefixed(const std::string& normalised_token) const {
    for (const auto& prefix : tables_.method_prefixes) {
        if (normalised_token.size() <= prefix.prefix.size() || !starts_with(normalised_token, prefix.prefix)) {
            continue;
        }
        const std::string rest = normalised_token.substr(prefix.prefix.size());
        const auto* base = look_up(tables_.method_tokens, alias_target_or_self(tables_.method_token_aliases, rest));
        if (base != nullptr && base->category == prefix.applies_to_category) {
            return {base, &prefix};
        }
    }
    return {};
}

std::string SchemaModel::canonical_method_token(const std::string& token) const {
    if (const std::string* target = look_up(tables_.method_token_aliases, key(token))) {
        return *target;
    }
    const Prefixed match = prefixed(key(token));
    return match.base != nullptr ? match.prefix->prefix + match.base->name : key(token);
}

std::string SchemaModel::method_token_category(const std::string& token) const {
    if (const std::string* target = look_up(tables_.method_token_aliases, key(token))) {
        const auto* spec = look_up(tables_.method_tokens, *target);
        return spec != nullptr ? spec->category : "other";
    }
    const Prefixed match = prefixed(key(token));
    return match.base != nullptr ? match.prefix->category : "other";
}

bool SchemaModel::is_known_method_token(const std::string& token) const {
    if (const std::string* target = look_up(tables_.method_token_aliases, key(token))) {
        return look_up(tables_.method_tokens, *target) != nullptr;
    }
    return prefixed(key(token)).base != nullptr;
}

bool SchemaModel::is_known_directive(const std::string& name) const {
    return look_up(tables_.directives, canonical_directive(name)) != nullptr;
}

bool SchemaModel::is_known_section(const std::string& name) const {
    return section(name) != nullptr;
}

const input::amesp::SectionSpec* SchemaModel::section(const std::string& name) const {
    return look_up(tables_.sections, canonical_section(name));
}

input::amesp::SectionParseMode SchemaModel::section_parse_mode(const std::string& name) const {
    const auto* spec = section(name);
    return spec != nullptr ? spec->parse_mode : input::amesp::SectionParseMode::raw;
}

std::string SchemaModel::canonical_entry(const std::string& section_name, const std::string& entry) const {
    const auto* spec = section(section_name);
    return spec != nullptr ? alias_target_or_self(spec->entry_aliases, key(entry)) : key(entry);
}

bool SchemaModel::is_known_entry(const std::string& section_name, const std::string& entry) const {
    const auto* spec = section(section_name);
    return spec != nullptr && look_up(spec->entries, canonical_entry(section_name, entry)) != nullptr;
}

}  // namespace velk::oracle
