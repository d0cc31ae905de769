// Records as the schema spells them.
#include "schema/records.hpp"

#include <utility>

#include <velk/core/text_view.hpp>

#include "schema/queries.hpp"

namespace velk::input::amesp::records {

using core::text::trim_view;

Directive make_directive(const InputSchema& schema, std::string_view name, std::string_view value) {
    Directive directive;
    directive.name = schema.canonical_directive(name);
    directive.value = trim_view(value);
    directive.known = schema.is_known_directive(directive.name);
    return directive;
}

MethodToken make_method_token(const InputSchema& schema, std::string_view text) {
    queries::TokenMatch match = queries::match_method_token(schema.tables(), text);
    MethodToken token;
    token.text = trim_view(text);
    token.canonical = std::move(match.canonical);
    token.category = match.category;
    token.known = match.known;
    return token;
}

Section make_section(const InputSchema& schema, std::string_view name, std::vector<std::string> arguments) {
    Section section;
    section.name = schema.canonical_section(name);
    section.arguments = std::move(arguments);
    if (const SectionSpec* const spec = queries::find_section(schema.tables(), section.name)) {
        section.known = true;
        section.parse_mode = spec->parse_mode;
    }
    return section;
}

SectionEntry make_entry(const SectionSpec* section, std::string_view key, std::string_view value) {
    SectionEntry entry;
    if (section != nullptr) {
        const Key normalised(key);
        entry.key = queries::canonical(section->entry_aliases, normalised);
        entry.known = queries::find_entry(*section, entry.key) != nullptr;
    } else {
        entry.key = normalize_key(key);
    }
    entry.value = trim_view(value);
    return entry;
}

}  // namespace velk::input::amesp::records
