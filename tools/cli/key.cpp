// Reading of keys.
#include "key.hpp"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <vector>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;
using velk::core::text::trim_view;

// What a name without a mark may mean.
struct Meaning {
    Key key;
    bool is_own_name;  // not an alias, nor a token made with a prefix
};

std::string normalised(std::string_view name) {
    return InputSchema().canonical_directive(name);
}

bool is_category(const InputSchema& schema, const std::string& name) {
    const InputSchema::Impl& tables = schema.tables();
    return name == "other" ||
           std::any_of(tables.method_tokens.begin(), tables.method_tokens.end(),
                       [&](const auto& token) { return token.second.category == name; }) ||
           std::any_of(tables.method_prefixes.begin(), tables.method_prefixes.end(),
                       [&](const MethodPrefixSpec& prefix) { return prefix.category == name; });
}

KeyKind kind_of_part(const InputSchema& schema, std::string_view section, std::string_view part) {
    const std::string name = normalised(part);
    if (name == "raw") {
        return schema.is_known_entry(section, part) ? KeyKind::entry : KeyKind::raw_lines;
    }
    if (schema.section_parse_mode(section) == SectionParseMode::key_value) {
        return KeyKind::entry;
    }
    return name == "charge"         ? KeyKind::charge
           : name == "multiplicity" ? KeyKind::multiplicity
           : name == "atoms"        ? KeyKind::atoms
                                    : KeyKind::entry;
}

// SECTION.PART, both of them there.
std::optional<Key> part_key(std::string_view text, const InputSchema& schema) {
    const std::size_t dot = std::min(text.find('.'), text.size());
    const std::string_view section = trim_view(text.substr(0, dot));
    const std::string_view part = trim_view(text.substr(std::min(dot + 1, text.size())));
    if (section.empty() || part.empty()) {
        return std::nullopt;
    }
    const KeyKind kind = kind_of_part(schema, section, part);
    return Key{kind, std::string(section), std::string(kind == KeyKind::entry ? part : "")};
}

Key token_key(std::string_view name, const InputSchema& schema) {
    const KeyKind kind = is_category(schema, normalised(name)) ? KeyKind::token_category : KeyKind::token;
    return {kind, std::string(name)};
}

std::optional<Key> marked_key(char mark, std::string_view name, const InputSchema& schema) {
    if (mark == '!') {
        return name.empty() ? Key{KeyKind::tokens, ""} : token_key(name, schema);
    }
    if (name.empty()) {
        return std::nullopt;
    }
    if (mark == '%') {
        return Key{KeyKind::directive, std::string(name)};
    }
    return name.find('.') == std::string_view::npos ? Key{KeyKind::section, std::string(name)} : part_key(name, schema);
}

bool is_marked(std::string_view text) {
    return text.starts_with('%') || text.starts_with('!') || text.starts_with('>');
}

const char* mark_of(KeyKind kind) {
    return kind == KeyKind::directive ? "%" : kind == KeyKind::token || kind == KeyKind::token_category ? "!" : ">";
}

[[noreturn]] void fail_as_no_key(std::string_view text, const std::string& reason) {
    throw std::runtime_error("'" + std::string(text) + "' is no key: " + reason);
}

constexpr auto forms =
    "expected %DIRECTIVE, !, !CATEGORY, !TOKEN, >SECTION, >SECTION.ENTRY, >SECTION.raw, or >xyz.charge, "
    ">xyz.multiplicity or >xyz.atoms";

// The only one; of several the only one that is no alias. Nothing when there is none.
std::optional<Key> clear_one(std::string_view text, std::vector<Meaning> meanings) {
    const auto is_own_name = [](const Meaning& meaning) { return meaning.is_own_name; };
    if (std::any_of(meanings.begin(), meanings.end(), is_own_name)) {
        std::erase_if(meanings, std::not_fn(is_own_name));
    }
    if (meanings.empty()) {
        return std::nullopt;
    }
    if (meanings.size() == 1) {
        return meanings.front().key;
    }
    std::string spellings;
    for (const Meaning& meaning : meanings) {
        spellings += spellings.empty() ? "'" : " or '";
        spellings += mark_of(meaning.key.kind) + std::string(text) + "'";
    }
    throw std::runtime_error("'" + std::string(text) + "' may mean several things: write " + spellings);
}

std::vector<Meaning> known_meanings(std::string_view text, const InputSchema& schema) {
    const std::string name(text);
    const std::string own = normalised(text);
    std::vector<Meaning> meanings;
    if (schema.is_known_directive(text)) {
        meanings.push_back({{KeyKind::directive, name}, schema.canonical_directive(text) == own});
    }
    if (is_category(schema, own)) {
        meanings.push_back({{KeyKind::token_category, name}, true});
    } else if (schema.is_known_method_token(text)) {
        meanings.push_back({{KeyKind::token, name}, schema.tables().method_tokens.contains(own)});
    }
    if (schema.is_known_section(text)) {
        meanings.push_back({{KeyKind::section, name}, schema.canonical_section(text) == own});
    }
    const std::optional<Key> part = part_key(text, schema);
    if (part && schema.is_known_section(part->name)) {
        meanings.push_back({*part, true});
    }
    return meanings;
}

std::vector<Meaning> meanings_in(const AIPData& data, std::string_view text, const InputSchema& schema) {
    const std::string name(text);
    std::vector<Meaning> meanings;
    if (data.find_directive(schema.canonical_directive(text)) != nullptr) {
        meanings.push_back({{KeyKind::directive, name}, true});
    }
    const std::string token = schema.canonical_method_token(text);
    if (std::any_of(data.method_tokens.begin(), data.method_tokens.end(),
                    [&](const MethodToken& known) { return known.canonical == token; })) {
        meanings.push_back({{KeyKind::token, name}, true});
    }
    if (data.find_section(schema.canonical_section(text)) != nullptr) {
        meanings.push_back({{KeyKind::section, name}, true});
    }
    return meanings;
}

// A section that is known not to be read as entries has none, so that the name is a mistake.
void require_entries(const std::optional<Key>& key, std::string_view text, const InputSchema& schema) {
    if (key && key->kind == KeyKind::entry && schema.is_known_section(key->name) &&
        schema.section_parse_mode(key->name) != SectionParseMode::key_value) {
        fail_as_no_key(text, "this section has no entries, only charge, multiplicity, atoms and raw");
    }
}

const char* description_of(KeyKind kind) {
    switch (kind) {
        case KeyKind::directive:
            return "a directive";
        case KeyKind::tokens:
            return "all tokens";
        case KeyKind::token_category:
            return "a category of tokens";
        case KeyKind::token:
            return "a token";
        case KeyKind::section:
            return "a section";
        case KeyKind::entry:
            return "an entry of a section";
        default:
            return "a part of a section";
    }
}

bool serves_as(KeyKind kind, KeyKind wanted) {
    if (kind == KeyKind::token_category) {
        return wanted == KeyKind::token;
    }
    return kind == wanted || (wanted == KeyKind::entry && kind > KeyKind::entry);
}

// As if the mark that belongs to the kind stood before it.
std::optional<Key> unmarked_key(KeyKind kind, std::string_view name, const InputSchema& schema) {
    if (name.empty()) {
        return std::nullopt;
    }
    return kind == KeyKind::entry ? part_key(name, schema) : Key{kind, std::string(name)};
}

}  // namespace

std::optional<Key> find_key(std::string_view text, const InputSchema& schema) {
    const std::string_view trimmed = trim_view(text);
    std::optional<Key> key;
    if (!is_marked(trimmed)) {
        key = clear_one(trimmed, known_meanings(trimmed, schema));
    } else if (!(key = marked_key(trimmed.front(), trim_view(trimmed.substr(1)), schema))) {
        fail_as_no_key(text, forms);
    }
    require_entries(key, text, schema);
    return key;
}

Key find_key(std::string_view text, const InputSchema& schema, const AIPData& data, const std::string& file) {
    std::optional<Key> key = find_key(text, schema);
    key = key ? key : clear_one(trim_view(text), meanings_in(data, trim_view(text), schema));
    key = key ? key : part_key(trim_view(text), schema);
    if (!key) {
        fail_as_no_key(text, "neither the schema nor '" + file + "' has such a name; " + forms);
    }
    return *key;
}

Key read_key(std::string_view place, KeyKind kind, std::string_view text, const InputSchema& schema) {
    const std::string_view trimmed = trim_view(text);
    const std::optional<Key> key = is_marked(trimmed)
                                       ? marked_key(trimmed.front(), trim_view(trimmed.substr(1)), schema)
                                       : unmarked_key(kind, trimmed, schema);
    if (!key) {
        throw std::runtime_error(std::string(place) + " expects " + description_of(kind) + ", got '" +
                                 std::string(text) + "'");
    }
    if (!serves_as(key->kind, kind)) {
        throw std::runtime_error(std::string(place) + " expects " + description_of(kind) + ", but '" +
                                 std::string(text) + "' is " + description_of(key->kind));
    }
    return *key;
}

}  // namespace amesp_inp
