// Fixes as edits: missing ends first, since what is read depends on them, then names.
#include "fixes.hpp"

#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "findings.hpp"
#include "missing_ends.hpp"
#include "records_at.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

void rename(AIPData& data, const Finding& finding) {
    if (finding.code == "amesp.unknown_directive") {
        if (Directive* const directive = record_at(data.directives, finding.location)) {
            directive->name = finding.suggestion;
        }
    } else if (finding.code == "amesp.unknown_method_token") {
        if (MethodToken* const token = record_at(data.method_tokens, finding.location)) {
            token->text = token->canonical = finding.suggestion;
        }
    } else if (finding.code == "amesp.unknown_section") {
        if (Section* const section = record_at(data.sections, finding.location)) {
            section->name = finding.suggestion;
        }
    } else if (Section* const section = section_around(data.sections, finding.location)) {
        if (SectionEntry* const entry = record_at(section->entries, finding.location)) {
            entry->key = finding.suggestion;
        }
    }
}

std::string with_known_names(const std::string& text, const InputSchema& schema) {
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    for (const Finding& finding : find_all(text, schema)) {
        if (!finding.suggestion.empty()) {
            rename(data, finding);
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
