// What a schema demands of every document, gathered once: most sections require no entry and few are counted, and the
// check of a small document shall not walk all tables.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {

struct InputSchema::DocumentRules {
    // A section that must occur, or at most once.
    struct CountedSection {
        const SectionSpec* spec = nullptr;
        std::size_t counter = 0;
    };

    explicit DocumentRules(const Impl& tables) {
        for (const auto& [key, section] : tables.sections) {
            for (const auto& [entry_key, entry] : section.entries) {
                if (entry.required) {
                    required_entries_[&section].push_back(&entry);
                }
            }
            if (section.required || !section.allow_multiple) {
                counted_sections.push_back({&section, counters.emplace(section.name, counters.size()).first->second});
            }
        }
    }

    // In the order of the schema.
    const std::vector<const ValueSpec*>& required_entries(const SectionSpec& section) const {
        static const std::vector<const ValueSpec*> none;
        const auto found = required_entries_.find(&section);
        return found == required_entries_.end() ? none : found->second;
    }

    std::vector<CountedSection> counted_sections;  // in the order of the schema
    StringMap<std::size_t> counters;               // of the names of those sections, numbered from 0

private:
    std::unordered_map<const SectionSpec*, std::vector<const ValueSpec*>> required_entries_;
};

}  // namespace velk::input::amesp
