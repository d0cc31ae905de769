// Fixes as edits: missing ends first, since what is read depends on them, then names.
#include "fixes.hpp"

#include <string>
#include <unordered_set>
#include <utility>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "findings.hpp"
#include "missing_ends.hpp"
#include "records_at.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

// Gives records the names that were suggested for them. A name that is there already is not given again: two records of
// one name are another fault, and which of them counts is not for a fix to say.
class Renaming {
public:
    Renaming(AIPData& data, const InputSchema& schema) : data_(data), schema_(schema) {
        for (const Directive& directive : data.directives) {
            takes("%" + directive.name);
        }
        for (const MethodToken& token : data.method_tokens) {
            takes("!" + token.canonical);
        }
        for (const Section& section : data.sections) {
            takes(">" + section.name);
            for (const SectionEntry& entry : section.entries) {
                takes(key_of(section, entry.key));
            }
        }
    }

    void rename(const Finding& finding) {
        const std::string& name = finding.suggestion;
        if (finding.code == "amesp.unknown_directive") {
            Directive* const directive = record_at(data_.directives, finding.location);
            if (directive != nullptr && takes("%" + schema_.canonical_directive(name))) {
                directive->name = name;
            }
        } else if (finding.code == "amesp.unknown_method_token") {
            MethodToken* const token = record_at(data_.method_tokens, finding.location);
            if (token != nullptr && takes("!" + schema_.canonical_method_token(name))) {
                token->text = token->canonical = name;
            }
        } else if (finding.code == "amesp.unknown_section") {
            Section* const section = record_at(data_.sections, finding.location);
            if (section != nullptr && (takes(">" + schema_.canonical_section(name)) || may_repeat(name))) {
                section->name = name;
            }
        } else if (Section* const section = section_around(data_.sections, finding.location)) {
            SectionEntry* const entry = record_at(section->entries, finding.location);
            if (entry != nullptr && takes(key_of(*section, schema_.canonical_entry(section->name, name)))) {
                entry->key = name;
            }
        }
    }

private:
    static std::string key_of(const Section& section, const std::string& entry) {
        return std::to_string(section.location->line) + "\n" + entry;
    }

    // False when it is there already.
    bool takes(std::string name) { return names_.insert(std::move(name)).second; }

    bool may_repeat(const std::string& section) const {
        const auto& sections = schema_.tables().sections;
        const auto spec = sections.find(schema_.canonical_section(section));
        return spec != sections.end() && spec->second.allow_multiple;
    }

    AIPData& data_;
    const InputSchema& schema_;
    std::unordered_set<std::string> names_;
};

std::string with_known_names(const std::string& text, const InputSchema& schema) {
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    Renaming renaming(data, schema);
    for (const Finding& finding : find_all(text, schema)) {
        if (!finding.suggestion.empty()) {
            renaming.rename(finding);
        }
    }
    return AIPEditor(std::move(data), schema).render_over(text).text;
}

}  // namespace

std::string fixed(std::string_view text, const InputSchema& schema, Fixes fixes) {
    std::string result = with_missing_ends(text, schema, fixes);
    if (fixes == Fixes::certain) {
        return result;
    }
    constexpr int rounds = 2;  // the lines of a section are read by its name: entries can be named once that is right
    for (int round = 0; round < rounds; ++round) {
        result = with_known_names(result, schema);
    }
    return result;
}

}  // namespace amesp_inp
