// Edits of '>' sections and of the entries in them.
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "schema/queries.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {
namespace {

// Brings a section up to date with what the schema makes of its name now.
void refresh(Section& section, Section made) noexcept {
    section.name = std::move(made.name);
    section.known = made.known;
    section.parse_mode = made.parse_mode;
    if (!made.arguments.empty()) {
        section.arguments = std::move(made.arguments);
    }
}

void put_entry(Section& section, SectionEntry made) {
    if (SectionEntry* const entry = section.find_entry(made.key)) {
        entry->key = std::move(made.key);
        entry->value = std::move(made.value);
        entry->known = made.known;
    } else {
        section.entries.push_back(std::move(made));
    }
}

// A section that is added is made from the name that was looked for: where an alias stands for another one, that goes
// one step further.
Section made_once_more(const AIPEditor& editor, Section made) {
    return editor.make_section(std::move(made.name), std::move(made.arguments));
}

}  // namespace

Section& AIPEditor::upsert_section(std::string name, std::vector<std::string> arguments) {
    Section made = make_section(std::move(name), std::move(arguments));
    if (Section* const section = data_.find_section(made.name)) {
        refresh(*section, std::move(made));
        return *section;
    }
    data_.sections.push_back(made_once_more(*this, std::move(made)));
    return data_.sections.back();
}

bool AIPEditor::remove_section(std::string_view name) {
    const std::string wanted = schema_.canonical_section(name);
    return remove_matching(data_.sections,
                           [&](const Section& section) { return schema_.canonical_section(section.name) == wanted; });
}

// The document changes only when nothing can fail any more: a section without its entry would be half an edit.
void AIPEditor::set_section_entry(std::string_view section, std::string key, std::string value) {
    const Key wanted(section);
    const queries::Match match = queries::match_section(schema_.tables(), wanted);
    Section made = records::make_section(match, {});
    if (Section* const target = data_.find_section(made.name)) {
        put_entry(*target, records::make_entry(match.spec, key, value));
        refresh(*target, std::move(made));
        return;
    }
    made = made_once_more(*this, std::move(made));
    made.entries.push_back(records::make_entry(queries::find_section(schema_.tables(), made.name), key, value));
    data_.sections.push_back(std::move(made));
}

bool AIPEditor::remove_section_entry(std::string_view section, std::string_view key) {
    Section* const target = data_.find_section(schema_.canonical_section(section));
    if (target == nullptr) {
        return false;
    }
    const std::string wanted = schema_.canonical_entry(target->name, key);
    return remove_matching(target->entries, [&](const SectionEntry& entry) {
        return schema_.canonical_entry(target->name, entry.key) == wanted;
    });
}

}  // namespace velk::input::amesp
