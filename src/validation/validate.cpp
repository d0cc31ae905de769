// The rules that a document must satisfy, in the order in which they are reported.
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "model/geometry_names.hpp"
#include "schema/document_rules.hpp"
#include "schema/queries.hpp"
#include "validation/document_check.hpp"
#include "validation/issues.hpp"
#include "validation/values.hpp"

namespace velk::input::amesp {
namespace {

// Sections of one kind, where there should be one at most.
struct Occurrences {
    std::uint64_t count = 0;
    const Section* first = nullptr;
    const Section* second = nullptr;

    void add(const Section& section) {
        ++count;
        if (count == 1) {
            first = &section;
        } else if (count == 2) {
            second = &section;
        }
    }
    IssueRecords records() const { return {.section = second, .first = first}; }
};

// `Take` is called with each issue and the records that it concerns.
template <class Rules, class Take>
class Validator {
public:
    Validator(const InputSchema::Impl& tables, const Rules& rules, const AIPData& data, Take take)
        : tables_(tables), rules_(rules), data_(data), take_(take), counted_sections_(rules.counters.size()) {}

    void run() {
        check_method_line();
        check_directives();
        check_method_tokens();
        for (const Section& section : data_.sections) {
            check_section(section);
        }
        check_geometry_count();
        check_section_specs();
    }

private:
    void add(ValidationIssue issue, const IssueRecords& records = {}) { take_(std::move(issue), records); }

    void add_all(std::vector<ValidationIssue> issues, const IssueRecords& records) {
        for (ValidationIssue& issue : issues) {
            add(std::move(issue), records);
        }
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
                add_all(check_value(*spec, directive.value, {name, std::nullopt}, directive.location),
                        {.directive = &directive, .value = spec});
            } else {
                add(issues::unknown_directive(directive), {.directive = &directive});
            }
        }
    }

    void check_method_tokens() {
        for (const MethodToken& token : data_.method_tokens) {
            const std::string& name = token.canonical.empty() ? token.text : token.canonical;
            const Key key(name);
            if (!queries::match_method_token(tables_, key).known) {
                add(issues::unknown_method_token(name, token.location), {.token = &token});
            }
        }
    }

    void check_section(const Section& section) {
        const Key key(section.name);
        const queries::Match match = queries::match_section(tables_, key);
        const std::string_view name = match.canonical;
        if (const std::size_t* const counter = queries::find(rules_.counters, name)) {
            counted_sections_[*counter].add(section);
        }
        if (is_geometry_section(name)) {
            geometries_.add(section);
        }
        const SectionSpec* const spec = queries::find(tables_.sections, name);
        if (spec == nullptr) {
            add(issues::unknown_section(section), {.section = &section});
            return;
        }
        if (!section.terminated) {
            add(issues::unterminated_section(name, section.location), {.section = &section});
        }
        if (name == xyz_section) {
            check_xyz(section);
        }
        check_entries(section, *spec, match);
    }

    void check_xyz(const Section& section) {
        if (!section.charge || !section.multiplicity) {
            add(issues::invalid_xyz_header(section.location), {.section = &section});
        } else if (*section.multiplicity < 1) {
            add(issues::invalid_multiplicity(section.location), {.section = &section});
        }
        if (section.atoms.empty()) {
            add(issues::empty_geometry(section.location), {.section = &section});
        }
    }

    // The entries of a section are looked up as its name says once more: a canonical name may itself be an alias.
    void check_entries(const Section& section, const SectionSpec& spec, const queries::Match<SectionSpec>& names) {
        const std::string_view name = names.canonical;
        const auto& required = rules_.required_entries(spec);
        std::vector<bool> present(required.numbers.size());
        for (const SectionEntry& entry : section.entries) {
            const Key key(entry.key);
            const std::string_view entry_name =
                names.spec != nullptr ? queries::canonical(names.spec->entry_aliases, key) : key.view();
            if (const ValueSpec* const value = queries::find(spec.entries, entry_name)) {
                add_all(check_value(*value, entry.value, {entry_name, name}, entry.location),
                        {.section = &section, .entry = &entry, .value = value});
            } else {
                add(issues::unknown_entry(entry, name), {.section = &section, .entry = &entry});
            }
            if (const std::size_t* const number = queries::find(required.numbers, entry_name)) {
                present[*number] = true;
            }
        }
        for (const auto& [value, number] : required.entries) {
            if (!present[number]) {
                add(issues::missing_required_entry(name, value->name, section.location), {.section = &section});
            }
        }
    }

    void check_geometry_count() {
        if (geometries_.count == 0) {
            add(issues::missing_geometry());
        } else if (geometries_.count > 1) {
            add(issues::multiple_geometry_sections(), geometries_.records());
        }
    }

    void check_section_specs() {
        for (const auto& [spec, counter] : rules_.counted_sections) {
            const Occurrences& sections = counted_sections_[counter];
            if (spec->required && sections.count == 0) {
                add(issues::missing_required_section(spec->name));
            }
            if (!spec->allow_multiple && sections.count > 1) {
                add(issues::duplicate_section(spec->name), sections.records());
            }
        }
    }

    const InputSchema::Impl& tables_;
    const Rules& rules_;
    const AIPData& data_;
    Take take_;
    std::vector<Occurrences> counted_sections_;  // by the counters of the rules
    Occurrences geometries_;
};

}  // namespace

std::vector<ValidationIssue> InputSchema::validate(const AIPData& data) const {
    std::vector<ValidationIssue> issues;
    Validator(*tables_, *rules_, data, [&](ValidationIssue issue, const IssueRecords& /*records*/) {
        issues.push_back(std::move(issue));
    }).run();
    return issues;
}

std::vector<RuleFinding> DocumentCheck::run(const InputSchema& schema, const AIPData& data) {
    std::vector<RuleFinding> findings;
    Validator(*schema.tables_, *schema.rules_, data, [&](ValidationIssue issue, const IssueRecords& records) {
        findings.push_back({std::move(issue), records});
    }).run();
    return findings;
}

}  // namespace velk::input::amesp
