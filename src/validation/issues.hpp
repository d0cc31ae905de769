// Every issue that validation can report: its code, its severity and its wording. No logic.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp::issues {

using Location = std::optional<SourceLocation>;

// The record whose value an issue speaks of. Views: the names must outlive it.
struct Subject {
    std::string_view name;                    // canonical
    std::optional<std::string_view> section;  // canonical; of an entry only

    // As messages name it: "directive '% maxcore'", "entry 'conv' in >scf".
    std::string label() const;
};

ValidationIssue missing_method_line();
ValidationIssue missing_geometry();
ValidationIssue multiple_geometry_sections();
ValidationIssue missing_required_section(std::string_view name);
ValidationIssue duplicate_section(std::string_view name);

// Unknown names are quoted as the record has them.
ValidationIssue unknown_directive(const Directive& directive);
ValidationIssue unknown_method_token(std::string_view name, const Location& location);
ValidationIssue unknown_section(const Section& section);
ValidationIssue unknown_entry(const SectionEntry& entry, std::string_view section);

ValidationIssue unterminated_section(std::string_view name, const Location& location);
ValidationIssue invalid_xyz_header(const Location& location);
ValidationIssue invalid_multiplicity(const Location& location);
ValidationIssue empty_geometry(const Location& location);
ValidationIssue missing_required_entry(std::string_view section, std::string_view key, const Location& location);

ValidationIssue invalid_value(const Subject& subject, std::string_view value_type, std::string_view value,
                              const Location& location);
ValidationIssue value_below_minimum(const Subject& subject, double minimum, const Location& location);
ValidationIssue value_above_maximum(const Subject& subject, double maximum, const Location& location);

}  // namespace velk::input::amesp::issues
