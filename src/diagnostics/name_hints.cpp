// Near names, and names that are known as something else.
#include "diagnostics/name_hints.hpp"

#include <algorithm>
#include <cstddef>

#include <velk/input/amesp/diagnostics.hpp>

#include "diagnostics/slips.hpp"
#include "diagnostics/token_kinds.hpp"

namespace velk::input::amesp {
namespace {

constexpr std::size_t most_suggestions = 3;

template <class Value>
void add_keys(std::vector<std::string>& names, const StringMap<Value>& table) {
    for (const auto& [key, value] : table) {
        names.push_back(key);
    }
}

template <class... Tables>
NearNames near_keys(const Tables&... tables) {
    std::vector<std::string> names;
    (add_keys(names, tables), ...);
    return NearNames(std::move(names));
}

NearNames near_tokens(const InputSchema::Impl& tables) {
    std::vector<std::string> names;
    add_keys(names, tables.method_tokens);
    add_keys(names, tables.method_token_aliases);
    for (const auto& prefix : tables.method_prefixes) {
        for (const auto& [alias, canonical] : tables.method_token_aliases) {
            const auto token = tables.method_tokens.find(canonical);
            if (token != tables.method_tokens.end() && token->second.category == prefix.applies_to_category) {
                names.push_back(prefix.prefix + alias);
            }
        }
    }
    return NearNames(std::move(names));
}

// "did you mean 'a', 'b' or 'c'?"
std::string question(const std::vector<std::string_view>& names) {
    const std::size_t count = std::min(names.size(), most_suggestions);
    std::string text = "did you mean ";
    for (std::size_t i = 0; i < count; ++i) {
        text += i == 0 ? "'" : (i + 1 == count ? " or '" : ", '");
        text += names[i];
        text += "'";
    }
    return text + "?";
}

// `canonical` gives the name that a spelling stands for.
template <class Canonical>
NameHints hints(std::string_view typed, const std::vector<std::string_view>& found, Canonical canonical) {
    if (found.empty()) {
        return {};
    }
    if (found.size() == 1) {
        return {{question(found)}, std::string(found.front())};
    }
    const std::string name = canonical(found.front());
    const bool is_one_name =
        std::all_of(found.begin(), found.end(), [&](std::string_view spelling) { return canonical(spelling) == name; });
    const auto slip = std::find_if(found.begin(), found.end(),
                                   [&](std::string_view spelling) { return is_one_slip(typed, spelling); });
    return {{question(found)}, is_one_name && slip != found.end() ? std::string(*slip) : std::string()};
}

// Of names that differ by more than a slip of letters within them, each means another calculation, and none is
// proposed.
bool is_another_calculation(const InputSchema& schema, std::string_view name, std::string_view known) {
    const bool has_suffix = known.starts_with(name) || name.starts_with(known);
    return !kind_of_calculation(schema, known).empty() && (has_suffix || !is_one_slip(name, known));
}

NameHints hints_of_tokens(const InputSchema& schema, std::string_view name, std::vector<std::string_view> found) {
    const auto others = std::stable_partition(found.begin(), found.end(), [&](std::string_view known) {
        return !is_another_calculation(schema, name, known);
    });
    if (others == found.begin() && others != found.end()) {
        const std::string near(found.front());
        const std::string kind(kind_of_calculation(schema, near));
        return {{"not in the schema; near: " + near + ", a different " + kind}, {}};
    }
    found.erase(others, found.end());
    return hints(name, found, [&](std::string_view known) { return schema.canonical_method_token(known); });
}

enum class Kind { directive, token, section };

void add_other_kinds(std::vector<std::string>& helps, const InputSchema& schema, std::string_view name, Kind kind) {
    const std::string quoted = "'" + std::string(name) + "'";
    if (kind != Kind::directive && schema.is_known_directive(name)) {
        helps.push_back(quoted + " is known as a directive: write '% " + std::string(name) + "' on a line of its own");
    }
    if (kind != Kind::token && schema.is_known_method_token(name)) {
        helps.push_back(quoted + " is known as a method-line token: write it on the '!' line");
    }
    if (kind != Kind::section && schema.is_known_section(name)) {
        helps.push_back(quoted + " is known as a section: write '>" + std::string(name) + "' with a closing 'end'");
    }
}

// Of each name of an entry the sections that know it, in the order of the schema.
StringMap<std::vector<std::string_view>> sections_by_entry(const InputSchema& schema) {
    StringMap<std::vector<std::string_view>> result;
    for (const auto& [section, spec] : schema.tables().sections) {
        std::vector<std::string> names;
        add_keys(names, spec.entries);
        add_keys(names, spec.entry_aliases);
        for (const std::string& name : names) {
            std::vector<std::string_view>& sections = result[name];
            if (sections.empty() || sections.back() != section) {
                sections.push_back(section);
            }
        }
    }
    return result;
}

}  // namespace

NameHints NameHinter::for_directive(std::string_view name) {
    if (!directives_) {
        directives_ = near_keys(schema_.tables().directives, schema_.tables().directive_aliases);
    }
    NameHints result = hints(name, directives_->nearest(name),
                             [&](std::string_view found) { return schema_.canonical_directive(found); });
    add_other_kinds(result.helps, schema_, name, Kind::directive);
    return result;
}

NameHints NameHinter::for_token(std::string_view name) {
    if (!tokens_) {
        tokens_ = near_tokens(schema_.tables());
    }
    NameHints result = hints_of_tokens(schema_, name, tokens_->nearest(name));
    add_other_kinds(result.helps, schema_, name, Kind::token);
    return result;
}

NameHints NameHinter::for_section(std::string_view name) {
    if (!sections_) {
        sections_ = near_keys(schema_.tables().sections, schema_.tables().section_aliases);
    }
    NameHints result =
        hints(name, sections_->nearest(name), [&](std::string_view found) { return schema_.canonical_section(found); });
    add_other_kinds(result.helps, schema_, name, Kind::section);
    return result;
}

// Entries are read in sections that the schema knows alone.
NameHints NameHinter::for_entry(std::string_view section, std::string_view name) {
    const SectionSpec& spec = schema_.tables().sections.find(schema_.canonical_section(section))->second;
    NameHints result = hints(name, near_entries(spec).nearest(name),
                             [&](std::string_view found) { return schema_.canonical_entry(section, found); });
    if (!sections_by_entry_) {
        sections_by_entry_ = sections_by_entry(schema_);
    }
    const auto others = sections_by_entry_->find(name);
    if (others == sections_by_entry_->end()) {
        return result;
    }
    for (const std::string_view other : others->second) {
        result.helps.push_back("'" + std::string(name) + "' is known as an entry of '>" + std::string(other) + "'");
    }
    return result;
}

NearNames& NameHinter::near_entries(const SectionSpec& section) {
    auto found = entries_.find(&section);
    if (found == entries_.end()) {
        found = entries_.emplace(&section, near_keys(section.entries, section.entry_aliases)).first;
    }
    return found->second;
}

std::string near_names(std::string_view name, const std::vector<std::string>& known) {
    NearNames names(known);
    const std::vector<std::string_view> found = names.nearest(name);
    return found.empty() ? std::string() : question(found);
}

}  // namespace velk::input::amesp
