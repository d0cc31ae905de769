// Records as the schema spells them.
#include "schema/records.hpp"

#include <utility>

#include <velk/core/text_view.hpp>

namespace velk::input::amesp::records {

using core::text::trim_view;

Directive make_directive(const InputSchema& schema, std::string_view name, std::string_view value) {
    const Key key(name);
    const queries::Match match = queries::match_directive(schema.tables(), key);
    return {std::string(match.canonical), std::string(trim_view(value)), match.spec != nullptr, std::nullopt};
}

MethodToken make_method_token(const InputSchema& schema, std::string_view text) {
    const Key key(text);
    const queries::TokenMatch match = queries::match_method_token(schema.tables(), key);
    return {std::string(trim_view(text)), match.canonical(), std::string(match.category), match.known, std::nullopt};
}

Section make_section(const InputSchema& schema, std::string_view name, std::vector<std::string> arguments) {
    const Key key(name);
    return make_section(queries::match_section(schema.tables(), key), std::move(arguments));
}

Section make_section(const queries::Match<SectionSpec>& match, std::vector<std::string> arguments) {
    Section section;
    section.name = match.canonical;
    section.arguments = std::move(arguments);
    if (match.spec != nullptr) {
        section.known = true;
        section.parse_mode = match.spec->parse_mode;
    }
    return section;
}

SectionEntry make_entry(const SectionSpec* section, std::string_view key, std::string_view value,
                        std::string_view raw_line, const std::optional<SourceLocation>& location) {
    const Key normalised(key);
    queries::Match<ValueSpec> match{normalised.view(), nullptr};
    if (section != nullptr) {
        match = queries::match_entry(*section, normalised);
    }
    return {std::string(match.canonical), std::string(trim_view(value)), match.spec != nullptr, std::string(raw_line),
            location};
}

}  // namespace velk::input::amesp::records
