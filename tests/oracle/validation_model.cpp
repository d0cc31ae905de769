// The model of validation.
#include "oracle/validation_model.hpp"

#include <cmath>
#include <optional>
#include <string>

#include "oracle/plain_numbers.hpp"
#include "oracle/plain_text.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

using Location = std::optional<SourceLocation>;

class Rules {
public:
    Rules(const AIPData& data, const SchemaModel& schema) : data_(data), schema_(schema) {}

    std::vector<ValidationIssue> issues() {
        if (data_.method_tokens.empty()) {
            error("missing_method_line", "AMESP input requires a non-empty method line beginning with '!'.", {});
        }
        for (const Directive& directive : data_.directives) {
            check(directive);
        }
        for (const MethodToken& token : data_.method_tokens) {
            check(token);
        }
        for (const Section& section : data_.sections) {
            check(section);
        }
        check_geometry();
        for (const auto& row : schema_.tables().sections) {
            check(row.second);
        }
        return issues_;
    }

private:
    void check(const Directive& directive) {
        const std::string name = schema_.canonical_directive(directive.name);
        if (const ValueSpec* spec = look_up(schema_.tables().directives, name)) {
            check_value(*spec, directive.value, "directive '% " + name + "'", directive.location);
        } else {
            warning("unknown_directive", "Unknown AMESP directive '% " + directive.name + "' was preserved.",
                    directive.location);
        }
    }

    void check(const MethodToken& token) {
        const std::string name = token.canonical.empty() ? token.text : token.canonical;
        if (!schema_.is_known_method_token(name)) {
            warning("unknown_method_token", "Unknown AMESP method-line token '" + name + "' was preserved.",
                    token.location);
        }
    }

    void check(const Section& section) {
        const std::string name = schema_.canonical_section(section.name);
        const SectionSpec* spec = look_up(schema_.tables().sections, name);
        if (spec == nullptr) {
            warning("unknown_section", "Unknown AMESP section '>" + section.name + "' was preserved.",
                    section.location);
            return;
        }
        if (!section.terminated) {
            error("unterminated_section", "AMESP section '>" + name + "' is missing its terminating 'end'.",
                  section.location);
        }
        if (name == "xyz") {
            check_xyz(section);
        }
        for (const SectionEntry& entry : section.entries) {
            check(entry, *spec, name);
        }
        for (const auto& row : spec->entries) {
            if (row.second.required && !holds(section, name, row.second.name)) {
                error("missing_required_entry", "Section '>" + name + "' requires entry '" + row.second.name + "'.",
                      section.location);
            }
        }
    }

    void check_xyz(const Section& section) {
        if (!section.charge || !section.multiplicity) {
            error("invalid_xyz_header", "The >xyz header requires charge and spin multiplicity.", section.location);
        } else if (*section.multiplicity <= 0) {
            error("invalid_multiplicity", "The >xyz spin multiplicity must be >= 1.", section.location);
        }
        if (section.atoms.empty()) {
            error("empty_geometry", "The >xyz section must contain at least one atom.", section.location);
        }
    }

    void check(const SectionEntry& entry, const SectionSpec& spec, const std::string& section) {
        const std::string name = schema_.canonical_entry(section, entry.key);
        if (const ValueSpec* value = look_up(spec.entries, name)) {
            check_value(*value, entry.value, "entry '" + name + "' in >" + section, entry.location);
        } else {
            // Without a quote before "was": the message is so.
            warning("unknown_entry", "Unknown entry '" + entry.key + "' in >" + section + " was preserved.",
                    entry.location);
        }
    }

    bool holds(const Section& section, const std::string& section_name, const std::string& entry_name) const {
        for (const SectionEntry& entry : section.entries) {
            if (schema_.canonical_entry(section_name, entry.key) == entry_name) {
                return true;
            }
        }
        return false;
    }

    int count(const std::string& section_name) const {
        int found = 0;
        for (const Section& section : data_.sections) {
            if (schema_.canonical_section(section.name) == section_name) {
                ++found;
            }
        }
        return found;
    }

    void check_geometry() {
        const int found = count("xyz") + count("zmat");
        if (found == 0) {
            error("missing_geometry", "AMESP input requires one >xyz or >zmat coordinate section.", {});
        } else if (found > 1) {
            error("multiple_geometry_sections", "AMESP input must not contain multiple >xyz/>zmat coordinate sections.",
                  {});
        }
    }

    void check(const SectionSpec& spec) {
        const int found = count(spec.name);
        if (spec.required && found == 0) {
            error("missing_required_section", "AMESP input requires section '>" + spec.name + "'.", {});
        }
        if (!spec.allow_multiple && found > 1) {
            error("duplicate_section", "AMESP section '>" + spec.name + "' may appear only once.", {});
        }
    }

    void check_value(const ValueSpec& spec, const std::string& value, const std::string& label,
                     const Location& location) {
        const std::string& type = spec.value_type;
        bool valid = true;
        std::optional<double> number;
        if (type == "integer" || type == "int") {
            if (const auto integer = read_int64(value)) {
                number = static_cast<double>(*integer);
            }
            valid = number.has_value();
        } else if (type == "real" || type == "double" || type == "float") {
            number = read_real(value);
            if (number && !std::isfinite(*number)) {
                number.reset();
            }
            valid = number.has_value();
        } else if (type == "boolean" || type == "bool") {
            valid = is_one_of(key(value), {"on", "off", "true", "false", "yes", "no", "1", "0"});
        } else if (type == "enum") {
            valid = is_one_of(key(value), spec.allowed);
        }
        if (!valid) {
            error("invalid_value", label + " expects " + type + ", got '" + value + "'.", location);
        } else if (number) {
            check_range(spec, *number, label, location);
        }
    }

    void check_range(const ValueSpec& spec, double number, const std::string& label, const Location& location) {
        if (spec.min && *spec.min > number) {
            error("value_below_minimum", label + " must be >= " + with_six_decimals(*spec.min) + ".", location);
        }
        if (spec.max && number > *spec.max) {
            error("value_above_maximum", label + " must be <= " + with_six_decimals(*spec.max) + ".", location);
        }
    }

    static bool is_one_of(const std::string& word, const std::vector<std::string>& words) {
        for (const std::string& candidate : words) {
            if (word == candidate) {
                return true;
            }
        }
        return false;
    }

    void error(const std::string& code, const std::string& message, const Location& location) {
        issues_.push_back({IssueSeverity::Error, "amesp." + code, message, location});
    }
    void warning(const std::string& code, const std::string& message, const Location& location) {
        issues_.push_back({IssueSeverity::Warning, "amesp." + code, message, location});
    }

    const AIPData& data_;
    const SchemaModel& schema_;
    std::vector<ValidationIssue> issues_;
};

}  // namespace

std::vector<ValidationIssue> validate(const AIPData& data, const SchemaModel& schema) {
    return Rules(data, schema).issues();
}

}  // namespace velk::oracle
