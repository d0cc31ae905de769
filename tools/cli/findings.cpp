// Findings from the library's warnings and issues: one for each fact, each with a place and with what helps to mend it.
#include "findings.hpp"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_map>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "line_marks.hpp"
#include "name_hints.hpp"
#include "records_at.hpp"
#include "source_lines.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

class Finder {
public:
    Finder(std::string_view text, const InputSchema& schema)
        : lines_(text), schema_(schema), data_(AIPParser::parse_string(text, schema, {true, false}).data) {}

    std::vector<Finding> run() {
        const std::vector<ValidationIssue> issues = schema_.validate(data_);
        add_parser_warnings(issues);
        for (const ValidationIssue& issue : issues) {
            found_.push_back(finding_of(issue));
        }
        std::stable_sort(found_.begin(), found_.end(), [](const Finding& a, const Finding& b) {
            return place_of(a.location) < place_of(b.location);
        });
        return std::move(found_);
    }

private:
    // Validation repeats a missing end as an error, at the same header.
    void add_parser_warnings(const std::vector<ValidationIssue>& issues) {
        std::set<std::uint64_t> unterminated;
        for (const ValidationIssue& issue : issues) {
            if (issue.code == "amesp.unterminated_section" && issue.location) {
                unterminated.insert(issue.location->line);
            }
        }
        for (const ParseWarning& warning : data_.warnings) {
            Finding finding{IssueSeverity::Warning, warning.code, warning.message, *warning.location, {}, {}};
            if (warning.code == "amesp.unterminated_section") {
                if (unterminated.contains(finding.location.line)) {
                    continue;
                }
                explain_missing_end(finding);
            }
            found_.push_back(std::move(finding));
        }
    }

    Finding finding_of(const ValidationIssue& issue) {
        Finding finding{issue.severity, issue.code, issue.message, {}, {}, {}};
        if (issue.location) {
            finding.location = *issue.location;
            add_helps(finding);
        } else {
            place(finding);
        }
        return finding;
    }

    // Issues about the document as a whole.
    void place(Finding& finding) {
        if (finding.code == "amesp.missing_method_line") {
            finding.location = first_content();
        } else if (finding.code == "amesp.multiple_geometry_sections") {
            place_at_second(finding, "the first coordinate section is here",
                            [](std::string_view name) { return name == "xyz" || name == "zmat"; });
        } else if (finding.code == "amesp.duplicate_section") {
            const std::string duplicate = next_duplicate();
            place_at_second(finding, "the first one is here", [&](std::string_view name) { return name == duplicate; });
        } else {
            finding.location = lines_.text_of(std::max<std::uint64_t>(1, lines_.count()));
        }
    }

    SourceLocation first_content() const {
        for (std::uint64_t number = 1; number <= lines_.count(); ++number) {
            const std::string_view text = velk::core::text::trim_view(lines_.line(number));
            if (!text.empty() && !is_comment(text)) {
                return lines_.text_of(number);
            }
        }
        return lines_.text_of(1);
    }

    template <class Matches>
    void place_at_second(Finding& finding, const char* note, Matches matches) {
        const Section* first = nullptr;
        for (const Section& section : data_.sections) {
            if (!matches(schema_.canonical_section(section.name))) {
                continue;
            }
            if (first != nullptr) {
                finding.location = *section.location;
                finding.notes.push_back({note, *first->location});
                return;
            }
            first = &section;
        }
    }

    // Duplicates are reported in the order of the schema's sections.
    std::string next_duplicate() {
        if (duplicates_.empty() && next_duplicate_ == 0) {
            std::unordered_map<std::string, int> counts;
            for (const Section& section : data_.sections) {
                ++counts[schema_.canonical_section(section.name)];
            }
            for (const auto& [key, spec] : schema_.tables().sections) {
                if (!spec.allow_multiple && counts[spec.name] > 1) {
                    duplicates_.push_back(spec.name);
                }
            }
        }
        return next_duplicate_ < duplicates_.size() ? duplicates_[next_duplicate_++] : std::string();
    }

    void add_helps(Finding& finding) {
        if (finding.code == "amesp.unterminated_section") {
            explain_missing_end(finding);
        } else if (finding.code == "amesp.invalid_value") {
            add_allowed_values(finding);
        } else if (finding.code.starts_with("amesp.unknown_")) {
            add_name_hints(finding);
        }
    }

    void explain_missing_end(Finding& finding) {
        for (std::uint64_t number = finding.location.line + 1; number <= lines_.count(); ++number) {
            const std::string_view text = velk::core::text::trim_view(lines_.line(number));
            if (is_marked(text)) {
                finding.notes.push_back(
                    {"this line is read as part of the section; an 'end' was probably meant "
                     "before it",
                     lines_.text_of(number)});
                return;
            }
        }
        finding.helps.emplace_back("add a line 'end' after the last line of the section");
    }

    const ValueSpec* value_spec_at(const SourceLocation& location) const {
        const InputSchema::Impl& tables = schema_.tables();
        if (const Directive* const directive = record_at(data_.directives, location)) {
            const auto spec = tables.directives.find(schema_.canonical_directive(directive->name));
            return spec == tables.directives.end() ? nullptr : &spec->second;
        }
        const Section* const section = section_around(data_.sections, location);
        const SectionEntry* const entry = section == nullptr ? nullptr : record_at(section->entries, location);
        if (entry == nullptr) {
            return nullptr;
        }
        const auto spec = tables.sections.find(schema_.canonical_section(section->name));
        if (spec == tables.sections.end()) {
            return nullptr;
        }
        const auto value = spec->second.entries.find(schema_.canonical_entry(section->name, entry->key));
        return value == spec->second.entries.end() ? nullptr : &value->second;
    }

    void add_allowed_values(Finding& finding) const {
        const ValueSpec* const spec = value_spec_at(finding.location);
        if (spec == nullptr) {
            return;
        }
        if (spec->value_type == "boolean" || spec->value_type == "bool") {
            finding.helps.emplace_back("allowed values: on, off, true, false, yes, no, 1, 0");
        } else if (spec->value_type == "enum") {
            std::string text = spec->allowed.empty() ? "the schema allows no value at all" : "allowed values: ";
            for (std::size_t i = 0; i < spec->allowed.size(); ++i) {
                text += (i == 0 ? "" : ", ") + spec->allowed[i];
            }
            finding.helps.push_back(std::move(text));
        }
    }

    void add_name_hints(Finding& finding) {
        const SourceLocation& location = finding.location;
        if (finding.code == "amesp.unknown_method_token") {
            if (const MethodToken* const token = record_at(data_.method_tokens, location)) {
                add_hints(finding, "!" + token->canonical, [&] { return hints_for_token(schema_, token->canonical); });
            }
        } else if (finding.code == "amesp.unknown_directive") {
            if (const Directive* const directive = record_at(data_.directives, location)) {
                add_hints(finding, "%" + directive->name,
                          [&] { return hints_for_directive(schema_, directive->name); });
            }
        } else if (finding.code == "amesp.unknown_section") {
            if (const Section* const section = record_at(data_.sections, location)) {
                add_hints(finding, ">" + section->name, [&] { return hints_for_section(schema_, section->name); });
            }
        } else if (const Section* const section = section_around(data_.sections, location)) {
            if (const SectionEntry* const entry = record_at(section->entries, location)) {
                add_hints(finding, section->name + "\n" + entry->key,
                          [&] { return hints_for_entry(schema_, section->name, entry->key); });
            }
        }
    }

    // A name that occurs often is compared with the schema's names once.
    template <class Make>
    void add_hints(Finding& finding, const std::string& key, Make make) {
        auto known = hints_.find(key);
        if (known == hints_.end()) {
            known = hints_.emplace(key, make()).first;
        }
        finding.helps = known->second.helps;
        finding.suggestion = known->second.suggestion;
    }

    const SourceLines lines_;
    const InputSchema& schema_;
    const AIPData data_;
    std::vector<Finding> found_;
    std::vector<std::string> duplicates_;
    std::size_t next_duplicate_ = 0;
    std::unordered_map<std::string, NameHints> hints_;
};

}  // namespace

std::vector<Finding> find_all(std::string_view text, const InputSchema& schema) {
    return Finder(text, schema).run();
}

}  // namespace amesp_inp
