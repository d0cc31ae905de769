// Near names by edit distance, and names that are known as something else.
#include "diagnostics/name_hints.hpp"

#include <algorithm>
#include <cstddef>

#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {
namespace {

constexpr std::size_t longest_name = 48;  // a longer one is no misspelt keyword
constexpr std::size_t most_suggestions = 3;

// Insertions, deletions, substitutions and swaps of neighbours that turn one text into the other.
std::size_t edit_distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> previous(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        previous[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t substitution = previous[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, substitution});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                current[j] = std::min(current[j], before[j - 2] + 1);
            }
        }
        std::swap(before, previous);
        std::swap(previous, current);
    }
    return previous[b.size()];
}

// Gathers the candidates nearest to a name.
class Nearest {
public:
    explicit Nearest(std::string_view name) : name_(name), best_(std::max<std::size_t>(1, name.size() / 3) + 1) {}

    void offer(std::string_view candidate) {
        const std::size_t difference =
            candidate.size() > name_.size() ? candidate.size() - name_.size() : name_.size() - candidate.size();
        if (name_.empty() || name_.size() > longest_name || difference > best_) {
            return;
        }
        const std::size_t distance = edit_distance(name_, candidate);
        if (distance < best_) {
            best_ = distance;
            found_.clear();
        }
        if (distance == best_ && distance < limit()) {
            found_.emplace_back(candidate);
        }
    }

    template <class Value>
    void offer_keys(const StringMap<Value>& table) {
        for (const auto& [key, value] : table) {
            offer(key);
        }
    }

    // "did you mean 'a', 'b' or 'c'?", or nothing. `canonical` gives the name that a spelling stands for.
    template <class Canonical>
    NameHints hints(Canonical canonical) && {
        if (found_.empty()) {
            return {};
        }
        std::sort(found_.begin(), found_.end());
        found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
        const bool is_one_name = std::all_of(found_.begin(), found_.end(), [&](const std::string& spelling) {
            return canonical(spelling) == canonical(found_.front());
        });
        std::string suggestion = found_.size() == 1 ? found_.front() : is_one_name ? canonical(found_.front()) : "";
        found_.resize(std::min(found_.size(), most_suggestions));
        return {{help()}, std::move(suggestion)};
    }

private:
    std::string help() const {
        std::string text = "did you mean ";
        for (std::size_t i = 0; i < found_.size(); ++i) {
            text += i == 0 ? "'" : (i + 1 == found_.size() ? " or '" : ", '");
            text += found_[i] + "'";
        }
        return text + "?";
    }

    std::size_t limit() const { return std::max<std::size_t>(1, name_.size() / 3) + 1; }

    std::string_view name_;
    std::size_t best_;
    std::vector<std::string> found_;
};

void offer_prefixed(Nearest& nearest, const InputSchema::Impl& tables) {
    for (const auto& prefix : tables.method_prefixes) {
        for (const auto& [alias, canonical] : tables.method_token_aliases) {
            const auto token = tables.method_tokens.find(canonical);
            if (token != tables.method_tokens.end() && token->second.category == prefix.applies_to_category) {
                nearest.offer(prefix.prefix + alias);
            }
        }
    }
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

}  // namespace

NameHints hints_for_directive(const InputSchema& schema, std::string_view name) {
    Nearest nearest(name);
    nearest.offer_keys(schema.tables().directives);
    nearest.offer_keys(schema.tables().directive_aliases);
    NameHints hints =
        std::move(nearest).hints([&](std::string_view found) { return schema.canonical_directive(found); });
    add_other_kinds(hints.helps, schema, name, Kind::directive);
    return hints;
}

NameHints hints_for_token(const InputSchema& schema, std::string_view name) {
    Nearest nearest(name);
    nearest.offer_keys(schema.tables().method_tokens);
    nearest.offer_keys(schema.tables().method_token_aliases);
    offer_prefixed(nearest, schema.tables());
    NameHints hints =
        std::move(nearest).hints([&](std::string_view found) { return schema.canonical_method_token(found); });
    add_other_kinds(hints.helps, schema, name, Kind::token);
    return hints;
}

NameHints hints_for_section(const InputSchema& schema, std::string_view name) {
    Nearest nearest(name);
    nearest.offer_keys(schema.tables().sections);
    nearest.offer_keys(schema.tables().section_aliases);
    NameHints hints = std::move(nearest).hints([&](std::string_view found) { return schema.canonical_section(found); });
    add_other_kinds(hints.helps, schema, name, Kind::section);
    return hints;
}

NameHints hints_for_entry(const InputSchema& schema, std::string_view section, std::string_view name) {
    const auto& sections = schema.tables().sections;
    Nearest nearest(name);
    if (const auto spec = sections.find(schema.canonical_section(section)); spec != sections.end()) {
        nearest.offer_keys(spec->second.entries);
        nearest.offer_keys(spec->second.entry_aliases);
    }
    NameHints hints =
        std::move(nearest).hints([&](std::string_view found) { return schema.canonical_entry(section, found); });
    for (const auto& [other, spec] : sections) {
        if (schema.is_known_entry(other, name)) {
            hints.helps.push_back("'" + std::string(name) + "' is known as an entry of '>" + other + "'");
        }
    }
    return hints;
}

std::string near_names(std::string_view name, const std::vector<std::string>& known) {
    Nearest nearest(name);
    for (const std::string& candidate : known) {
        nearest.offer(candidate);
    }
    const NameHints hints = std::move(nearest).hints([](std::string_view found) { return std::string(found); });
    return hints.helps.empty() ? std::string() : hints.helps.front();
}

}  // namespace velk::input::amesp
