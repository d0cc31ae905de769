// Values of keys.
#include "key_values.hpp"

#include <velk/input/amesp/positions.hpp>
#include <velk/input/amesp/xyz.hpp>

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;
using Value = std::optional<KeyValue>;

Value text_value(std::string text) {
    return KeyValue{KeyValue::Shape::text, {std::move(text)}};
}

Value integer(const std::optional<std::int32_t>& number) {
    return number ? text_value(std::to_string(*number)) : std::nullopt;
}

Value unless_empty(KeyValue::Shape shape, std::vector<std::string> parts) {
    return parts.empty() ? std::nullopt : Value({shape, std::move(parts)});
}

template <class Wanted>
Value tokens(const AIPData& data, Wanted wanted) {
    std::vector<std::string> words;
    for (const MethodToken& token : data.method_tokens) {
        if (wanted(token)) {
            words.push_back(token.text);
        }
    }
    return unless_empty(KeyValue::Shape::words, std::move(words));
}

Value atoms(const Section& section) {
    std::vector<std::string> lines;
    for (const AtomRecord& atom : section.atoms) {
        lines.push_back(atom.symbol + " " + coordinate_text(atom.x) + " " + coordinate_text(atom.y) + " " +
                        coordinate_text(atom.z));
    }
    return unless_empty(KeyValue::Shape::lines, std::move(lines));
}

// Every line of a body is an entry, an atom or a kept line.
Value source_of(const Section& section, std::string_view text) {
    const std::uint64_t count =
        1 + section.entries.size() + section.atoms.size() + section.raw_lines.size() + (section.terminated ? 1U : 0U);
    const TextPositions lines(text);
    std::vector<std::string> source;
    for (std::uint64_t i = 0; i < count; ++i) {
        source.emplace_back(lines.line(section.location->line + i));
    }
    return unless_empty(KeyValue::Shape::lines, std::move(source));
}

Value value_in(const Section& section, const Key& key, const InputSchema& schema, std::string_view text) {
    switch (key.kind) {
        case KeyKind::section:
            return source_of(section, text);
        case KeyKind::charge:
            return integer(section.charge);
        case KeyKind::multiplicity:
            return integer(section.multiplicity);
        case KeyKind::atoms:
            return atoms(section);
        case KeyKind::raw_lines:
            return unless_empty(KeyValue::Shape::lines, section.raw_lines);
        default:
            const SectionEntry* const entry = section.find_entry(schema.canonical_entry(section.name, key.entry));
            return entry == nullptr ? std::nullopt : text_value(entry->value);
    }
}

}  // namespace

bool is_of_category(const MethodToken& token, std::string_view category) {
    return token.category == InputSchema().canonical_directive(category);
}

Value value_of(const Key& key, const AIPData& data, const InputSchema& schema, std::string_view text) {
    switch (key.kind) {
        case KeyKind::directive: {
            const Directive* const directive = data.find_directive(schema.canonical_directive(key.name));
            return directive == nullptr ? std::nullopt : text_value(directive->value);
        }
        case KeyKind::tokens:
            return tokens(data, [](const MethodToken& /*token*/) { return true; });
        case KeyKind::token_category:
            return tokens(data, [&](const MethodToken& token) { return is_of_category(token, key.name); });
        case KeyKind::token:
            return tokens(data, [name = schema.canonical_method_token(key.name)](const MethodToken& token) {
                return token.canonical == name;
            });
        default:
            const Section* const section = data.find_section(schema.canonical_section(key.name));
            return section == nullptr ? std::nullopt : value_in(*section, key, schema, text);
    }
}

}  // namespace amesp_inp
