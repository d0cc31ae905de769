// Misspelt names given the name that was probably meant.
#include "diagnostics/renames.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "diagnostics/slips.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/token_kinds.hpp"
#include "diagnostics/value_places.hpp"
#include "model/key.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

std::string line_of(const Section& section) {
    return std::to_string(section.location->line);
}

// Whether a name written in the place of another one is read as that name, wherever it stands.
bool is_plain(std::string_view name) {
    const bool one_word = std::none_of(name.begin(), name.end(), core::text::is_space);
    return one_word && classify(name) == LineKind::other && !is_section_end(name) &&
           name.find('=') == std::string_view::npos;
}

std::string_view word_after_marker(std::string_view line, const SourceLocation& location) {
    std::string_view rest = line.substr(static_cast<std::size_t>(location.column));
    return take_word(rest);
}

// Nothing for a word of exclamation marks alone: it is located at the marker of its line.
std::string_view token_in(std::string_view line, const SourceLocation& location) {
    const auto begin = static_cast<std::size_t>(location.column - 1);
    return begin <= line.find('!') ? std::string_view() : line.substr(begin, static_cast<std::size_t>(location.length));
}

}  // namespace

std::optional<Fix> Renames::fix(const IssueRecords& records, const std::string& name) {
    const std::string_view word = word_of(records);
    if (!is_plain(name) || !is_one_slip(normalize_key(word), name) || changes_more(records, name)) {
        return std::nullopt;
    }
    if (!is_filled_) {
        take_names_of_document();
        is_filled_ = true;
    }
    if (!takes(records, name)) {
        return std::nullopt;
    }
    const auto offset = static_cast<std::uint64_t>(word.data() - text_.text().data());
    return Fix{
        "change '" + std::string(word) + "' to '" + name + "'", Applicability::likely, {{offset, word.size(), name}}};
}

// Whether the calculation would be another one, or a value that the name does not take would be read.
bool Renames::changes_more(const IssueRecords& records, const std::string& name) const {
    if (records.token != nullptr) {
        return !kind_of_calculation(schema_, name).empty();
    }
    return records.directive != nullptr && records.directive->value.starts_with('=');
}

void Renames::take_names_of_document() {
    for (const Directive& directive : document_.directives) {
        taken_.insert({std::string(subjects::directive), {}, directive.name});
    }
    for (const MethodToken& token : document_.method_tokens) {
        taken_.insert({std::string(subjects::token), {}, token.canonical});
    }
    for (const Section& section : document_.sections) {
        taken_.insert({std::string(subjects::section), {}, section.name});
        for (const SectionEntry& entry : section.entries) {
            taken_.insert({std::string(subjects::entry), line_of(section), entry.key});
        }
    }
}

// Takes the name for the record, unless it is taken.
bool Renames::takes(const IssueRecords& records, const std::string& name) {
    if (records.directive != nullptr) {
        return taken_.insert({std::string(subjects::directive), {}, schema_.canonical_directive(name)}).second;
    }
    if (records.token != nullptr) {
        return taken_.insert({std::string(subjects::token), {}, schema_.canonical_method_token(name)}).second;
    }
    if (records.entry != nullptr) {
        const std::string key = schema_.canonical_entry(records.section->name, name);
        return taken_.insert({std::string(subjects::entry), line_of(*records.section), key}).second;
    }
    const std::string section = schema_.canonical_section(name);
    return taken_.insert({std::string(subjects::section), {}, section}).second || may_repeat(section);
}

bool Renames::may_repeat(const std::string& section) const {
    const auto& sections = schema_.tables().sections;
    const auto spec = sections.find(section);
    return spec != sections.end() && spec->second.allow_multiple;
}

// Where the name of a record stands in the text; empty when that cannot be told.
std::string_view Renames::word_of(const IssueRecords& records) const {
    if (records.token != nullptr) {
        return token_in(text_.line(records.token->location->line), *records.token->location);
    }
    if (records.entry != nullptr) {
        return entry_words(trim_view(text_.line(records.entry->location->line))).name;
    }
    const SourceLocation& location =
        records.directive != nullptr ? *records.directive->location : *records.section->location;
    return word_after_marker(text_.line(location.line), location);
}

}  // namespace velk::input::amesp
