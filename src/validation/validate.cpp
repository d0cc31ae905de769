// The rules that a document must satisfy, in the order in which they are reported.
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "model/geometry_names.hpp"
#include "schema/document_rules.hpp"
#include "schema/queries.hpp"
#include "validation/issues.hpp"
#include "validation/values.hpp"

namespace velk::input::amesp {
namespace {

template <class Rules>
class Validator {
public:
    Validator(const InputSchema::Impl& tables, const Rules& rules, const AIPData& data)
        : tables_(tables), rules_(rules), data_(data), section_counts_(rules.counters.size()) {}

    std::vector<ValidationIssue> run() {
        check_method_line();
        check_directives();
        check_method_tokens();
        for (const Section& section : data_.sections) {
            check_section(section);
        }
        check_geometry_count();
        check_section_specs();
        return std::move(found_);
    }

private:
    void add(ValidationIssue issue) { found_.push_back(std::move(issue)); }

    void add_all(std::vector<ValidationIssue> issues) {
        if (issues.empty()) {
            return;
        }
        found_.insert(found_.end(), std::make_move_iterator(issues.begin()), std::make_move_iterator(issues.end()));
    }

    void check_method_line() {
        if (data_.method_tokens.empty()) {
            add(issues::missing_method_line());
        }
    }

    void check_directives() {
        for (const Directive& directive : data_.directives) {
            const Key key(directive.name);
            const std::string_view name = queries::canonical(tables_.directive_aliases, key);
            if (const ValueSpec* const spec = queries::find(tables_.directives, name)) {
                add_all(check_value(*spec, directive.value, {name, std::nullopt}, directive.location));
            } else {
                add(issues::unknown_directive(directive));
            }
        }
    }

    void check_method_tokens() {
        for (const MethodToken& token : data_.method_tokens) {
            const std::string& name = token.canonical.empty() ? token.text : token.canonical;
            const Key key(name);
            if (!queries::match_method_token(tables_, key).known) {
                add(issues::unknown_method_token(name, token.location));
            }
        }
    }

    void check_section(const Section& section) {
        const Key key(section.name);
        const queries::Match match = queries::match_section(tables_, key);
        const std::string_view name = match.canonical;
        if (const std::size_t* const counter = queries::find(rules_.counters, name)) {
            ++section_counts_[*counter];
        }
        if (is_geometry_section(name)) {
            ++geometry_count_;
        }
        const SectionSpec* const spec = queries::find(tables_.sections, name);
        if (spec == nullptr) {
            add(issues::unknown_section(section));
            return;
        }
        if (!section.terminated) {
            add(issues::unterminated_section(name, section.location));
        }
        if (name == xyz_section) {
            check_xyz(section);
        }
        check_entries(section, *spec, match);
    }

    void check_xyz(const Section& section) {
        if (!section.charge || !section.multiplicity) {
            add(issues::invalid_xyz_header(section.location));
        } else if (*section.multiplicity < 1) {
            add(issues::invalid_multiplicity(section.location));
        }
        if (section.atoms.empty()) {
            add(issues::empty_geometry(section.location));
        }
    }

    // The entries of a section are looked up as its name says once more: a canonical name may itself be an alias.
    void check_entries(const Section& section, const SectionSpec& spec, const queries::Match<SectionSpec>& names) {
        const std::string_view name = names.canonical;
        const std::vector<const ValueSpec*>& required = rules_.required_entries(spec);
        std::optional<std::unordered_set<std::string>> present;  // made where something is required, which is rare
        if (!required.empty()) {
            present.emplace();
        }
        for (const SectionEntry& entry : section.entries) {
            const Key key(entry.key);
            const std::string_view entry_name =
                names.spec != nullptr ? queries::canonical(names.spec->entry_aliases, key) : key.view();
            if (const ValueSpec* const value = queries::find(spec.entries, entry_name)) {
                add_all(check_value(*value, entry.value, {entry_name, name}, entry.location));
            } else {
                add(issues::unknown_entry(entry, name));
            }
            if (present) {
                present->emplace(entry_name);
            }
        }
        for (const ValueSpec* const value : required) {
            if (!present->contains(value->name)) {
                add(issues::missing_required_entry(name, value->name, section.location));
            }
        }
    }

    void check_geometry_count() {
        if (geometry_count_ == 0) {
            add(issues::missing_geometry());
        } else if (geometry_count_ > 1) {
            add(issues::multiple_geometry_sections());
        }
    }

    void check_section_specs() {
        for (const auto& [spec, counter] : rules_.counted_sections) {
            const std::uint64_t count = section_counts_[counter];
            if (spec->required && count == 0) {
                add(issues::missing_required_section(spec->name));
            }
            if (!spec->allow_multiple && count > 1) {
                add(issues::duplicate_section(spec->name));
            }
        }
    }

    const InputSchema::Impl& tables_;
    const Rules& rules_;
    const AIPData& data_;
    std::vector<ValidationIssue> found_;
    std::vector<std::uint64_t> section_counts_;  // by the counters of the rules
    std::uint64_t geometry_count_ = 0;
};

}  // namespace

std::vector<ValidationIssue> InputSchema::validate(const AIPData& data) const {
    return Validator(*tables_, *rules_, data).run();
}

}  // namespace velk::input::amesp
