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

    // The entries that a section must have.
    struct RequiredEntries {
        struct Entry {
            const ValueSpec* spec = nullptr;
            std::size_t number = 0;
        };
        std::vector<Entry> entries;      // in the order of the schema
        StringMap<std::size_t> numbers;  // of their names, from 0
    };

    explicit DocumentRules(const Impl& tables) {
        for (const auto& [key, section] : tables.sections) {
            for (const auto& [entry_key, entry] : section.entries) {
                if (entry.required) {
                    add(required_entries_[&section], entry);
                }
            }
            if (section.required || !section.allow_multiple) {
                counted_sections.push_back({&section, counters.emplace(section.name, counters.size()).first->second});
            }
        }
    }

    const RequiredEntries& required_entries(const SectionSpec& section) const {
        static const RequiredEntries none;
        const auto found = required_entries_.find(&section);
        return found == required_entries_.end() ? none : found->second;
    }

    std::vector<CountedSection> counted_sections;  // in the order of the schema
    StringMap<std::size_t> counters;               // of the names of those sections, numbered from 0

private:
    static void add(RequiredEntries& required, const ValueSpec& entry) {
        required.entries.push_back(
            {&entry, required.numbers.emplace(entry.name, required.numbers.size()).first->second});
    }

    std::unordered_map<const SectionSpec*, RequiredEntries> required_entries_;
};

}  // namespace velk::input::amesp
