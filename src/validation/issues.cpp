// The codes, severities and texts of all issues.
#include "validation/issues.hpp"

#include <initializer_list>
#include <utility>

#include <velk/input/amesp/codes.hpp>

#include "model/numbers.hpp"

namespace velk::input::amesp::issues {
namespace {

std::string join(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    return text;
}

ValidationIssue error(std::string_view code, std::string message, const Location& location = std::nullopt) {
    return {IssueSeverity::Error, std::string(code), std::move(message), location};
}

ValidationIssue warning(std::string_view code, std::string message, const Location& location) {
    return {IssueSeverity::Warning, std::string(code), std::move(message), location};
}

std::string bound_text(double bound) {
    constexpr int decimals = 6;
    std::string text;
    append_fixed(text, bound, decimals);
    return text;
}

}  // namespace

std::string Subject::label() const {
    return section ? join({"entry '", name, "' in >", *section}) : join({"directive '% ", name, "'"});
}

ValidationIssue missing_method_line() {
    return error(codes::missing_method_line, "AMESP input requires a non-empty method line beginning with '!'.");
}

ValidationIssue missing_geometry() {
    return error(codes::missing_geometry, "AMESP input requires one >xyz or >zmat coordinate section.");
}

ValidationIssue multiple_geometry_sections() {
    return error(codes::multiple_geometry_sections,
                 "AMESP input must not contain multiple >xyz/>zmat coordinate sections.");
}

ValidationIssue missing_required_section(std::string_view name) {
    return error(codes::missing_required_section, join({"AMESP input requires section '>", name, "'."}));
}

ValidationIssue duplicate_section(std::string_view name) {
    return error(codes::duplicate_section, join({"AMESP section '>", name, "' may appear only once."}));
}

ValidationIssue unknown_directive(const Directive& directive) {
    return warning(codes::unknown_directive, join({"Unknown AMESP directive '% ", directive.name, "' was preserved."}),
                   directive.location);
}

ValidationIssue unknown_method_token(std::string_view name, const Location& location) {
    return warning(codes::unknown_method_token, join({"Unknown AMESP method-line token '", name, "' was preserved."}),
                   location);
}

ValidationIssue unknown_section(const Section& section) {
    return warning(codes::unknown_section, join({"Unknown AMESP section '>", section.name, "' was preserved."}),
                   section.location);
}

ValidationIssue unknown_entry(const SectionEntry& entry, std::string_view section) {
    return warning(codes::unknown_entry, join({"Unknown entry '", entry.key, "' in >", section, " was preserved."}),
                   entry.location);
}

ValidationIssue unterminated_section(std::string_view name, const Location& location) {
    return error(codes::unterminated_section, join({"AMESP section '>", name, "' is missing its terminating 'end'."}),
                 location);
}

ValidationIssue invalid_xyz_header(const Location& location) {
    return error(codes::invalid_xyz_header, "The >xyz header requires charge and spin multiplicity.", location);
}

ValidationIssue invalid_multiplicity(const Location& location) {
    return error(codes::invalid_multiplicity, "The >xyz spin multiplicity must be >= 1.", location);
}

ValidationIssue empty_geometry(const Location& location) {
    return error(codes::empty_geometry, "The >xyz section must contain at least one atom.", location);
}

ValidationIssue missing_required_entry(std::string_view section, std::string_view key, const Location& location) {
    return error(codes::missing_required_entry, join({"Section '>", section, "' requires entry '", key, "'."}),
                 location);
}

ValidationIssue invalid_value(const Subject& subject, std::string_view value_type, std::string_view value,
                              const Location& location) {
    return error(codes::invalid_value, join({subject.label(), " expects ", value_type, ", got '", value, "'."}),
                 location);
}

ValidationIssue value_below_minimum(const Subject& subject, double minimum, const Location& location) {
    return error(codes::value_below_minimum, join({subject.label(), " must be >= ", bound_text(minimum), "."}),
                 location);
}

ValidationIssue value_above_maximum(const Subject& subject, double maximum, const Location& location) {
    return error(codes::value_above_maximum, join({subject.label(), " must be <= ", bound_text(maximum), "."}),
                 location);
}

}  // namespace velk::input::amesp::issues
