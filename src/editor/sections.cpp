// Edits of '>' sections and of the entries in them.
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "schema/queries.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {

Section& AIPEditor::upsert_section(std::string name, std::vector<std::string> arguments) {
    Section made = make_section(std::move(name), std::move(arguments));
    Section* const section = data_.find_section(made.name);
    if (section == nullptr) {
        // Made from the name that was looked for: where an alias stands for another one, that goes one step further.
        data_.sections.push_back(make_section(std::move(made.name), std::move(made.arguments)));
        return data_.sections.back();
    }
    section->name = std::move(made.name);
    section->known = made.known;
    section->parse_mode = made.parse_mode;
    if (!made.arguments.empty()) {
        section->arguments = std::move(made.arguments);
    }
    return *section;
}

bool AIPEditor::remove_section(std::string_view name) {
    const std::string wanted = schema_.canonical_section(name);
    return remove_matching(data_.sections,
                           [&](const Section& section) { return schema_.canonical_section(section.name) == wanted; });
}

void AIPEditor::set_section_entry(std::string_view section, std::string key, std::string value) {
    Section& target = upsert_section(std::string(section), {});
    const SectionSpec* const spec = queries::find_section(schema_.tables(), target.name);
    SectionEntry made = records::make_entry(spec, key, value);
    if (SectionEntry* const entry = target.find_entry(made.key)) {
        entry->key = std::move(made.key);
        entry->value = std::move(made.value);
        entry->known = made.known;
    } else {
        target.entries.push_back(std::move(made));
    }
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
