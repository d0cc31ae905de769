// Random schemas, filled by hand: what a loader makes and what only a caller can.
#include "oracle/random_schema.hpp"

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "oracle/random_words.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

using Limits = std::numeric_limits<double>;

std::optional<double> random_bound(Chance& chance) {
    static const std::vector<std::optional<double>> bounds = {std::nullopt,
                                                              std::nullopt,
                                                              0.0,
                                                              1.0,
                                                              -1.0,
                                                              0.5,
                                                              -3.0,
                                                              1e20,
                                                              2147483647.0,
                                                              9223372036854775807.0,
                                                              1e308,
                                                              -0.0,
                                                              1e-300,
                                                              1e-12,
                                                              123456.7891,
                                                              1e15,
                                                              Limits::quiet_NaN(),
                                                              Limits::infinity(),
                                                              -Limits::infinity(),
                                                              Limits::denorm_min(),
                                                              Limits::lowest()};
    return chance.of(bounds);
}

std::string random_category(Chance& chance) {
    static const std::vector<std::string> categories = {"method", "method", "method", "basis", "other", ""};
    return chance.of(categories);
}

// Mostly the name it is found by, as a loader stores it.
std::string stored_name(Chance& chance, const std::string& name) {
    return chance.one_in(24) ? random_name(chance) : name;
}

ValueSpec random_value_spec(Chance& chance, const std::string& name) {
    static const std::vector<std::string> types = {"integer", "int",  "real", "double", "float",   "boolean",
                                                   "bool",    "enum", "enum", "string", "Integer", ""};
    static const std::vector<std::string> allowed = {"on", "a", "b", "ab", "hf", "", "1", "a b", "\xe9t", "end"};
    ValueSpec spec;
    spec.name = stored_name(chance, name);
    spec.value_type = chance.of(types);
    for (std::size_t left = chance.below(4); left > 0; --left) {
        spec.allowed.push_back(chance.of(allowed));
    }
    spec.min = random_bound(chance);
    spec.max = random_bound(chance);
    spec.required = chance.one_in(4);
    return spec;
}

// Each name maps to itself, mostly; then further aliases, also of missing names, of aliases and in circles.
template <class T>
void fill_aliases(Chance& chance, const StringMap<T>& table, StringMap<std::string>& aliases) {
    for (const auto& row : table) {
        if (!chance.one_in(8)) {
            aliases.emplace(row.first, row.first);
        }
    }
    for (std::size_t left = chance.below(5); left > 0; --left) {
        aliases.insert_or_assign(random_name(chance), random_name(chance));
    }
}

SectionSpec random_section_spec(Chance& chance, const std::string& name) {
    static const std::vector<std::string> extra_entries = {"a b", "key", "k"};
    SectionSpec spec;
    spec.name = stored_name(chance, name);
    spec.parse_mode = static_cast<SectionParseMode>(chance.below(3));
    if (name == "xyz" && !chance.one_in(4)) {
        spec.parse_mode = SectionParseMode::cartesian_coordinates;
    }
    spec.required = chance.one_in(4);
    spec.allow_multiple = chance.one_in(2);
    for (std::size_t left = chance.below(6); left > 0; --left) {
        const std::string entry = chance.one_in(6) ? chance.of(extra_entries) : random_name(chance);
        spec.entries.emplace(entry, random_value_spec(chance, entry));
    }
    fill_aliases(chance, spec.entries, spec.entry_aliases);
    return spec;
}

}  // namespace

std::shared_ptr<const InputSchema::Impl> random_schema(Chance& chance) {
    static const std::vector<std::string> prefixes = {"u", "r", "ro", "", "!", "rr", "a"};
    const auto tables = std::make_shared<InputSchema::Impl>();
    if (chance.one_in(40)) {
        return tables;
    }
    for (std::size_t left = chance.below(6); left > 0; --left) {
        const std::string name = random_name(chance);
        tables->directives.emplace(name, random_value_spec(chance, name));
    }
    for (std::size_t left = chance.below(8); left > 0; --left) {
        const std::string name = random_name(chance);
        tables->method_tokens.emplace(name, MethodSpec{stored_name(chance, name), random_category(chance)});
    }
    for (std::size_t left = chance.below(5); left > 0; --left) {
        tables->method_prefixes.push_back(
            {chance.of(prefixes), chance.one_in(2) ? "method" : random_name(chance), random_category(chance)});
    }
    if (!chance.one_in(3)) {
        tables->sections.emplace("xyz", random_section_spec(chance, "xyz"));
    }
    for (std::size_t left = chance.below(7); left > 0; --left) {
        const std::string name = random_name(chance);
        tables->sections.emplace(name, random_section_spec(chance, name));
    }
    fill_aliases(chance, tables->directives, tables->directive_aliases);
    fill_aliases(chance, tables->method_tokens, tables->method_token_aliases);
    fill_aliases(chance, tables->sections, tables->section_aliases);
    return tables;
}

}  // namespace velk::oracle
