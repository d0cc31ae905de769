// The entries that sections must hold, gathered once for each schema: most sections require none, and the check of a
// small document shall not walk all that a section may hold.
#pragma once

#include <unordered_map>
#include <vector>

#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {

struct InputSchema::RequiredEntries {
    explicit RequiredEntries(const Impl& tables) {
        for (const auto& [name, section] : tables.sections) {
            for (const auto& [key, entry] : section.entries) {
                if (entry.required) {
                    of_section_[&section].push_back(&entry);
                }
            }
        }
    }

    // In the order of the schema.
    const std::vector<const ValueSpec*>& of(const SectionSpec& section) const {
        static const std::vector<const ValueSpec*> none;
        const auto found = of_section_.find(&section);
        return found == of_section_.end() ? none : found->second;
    }

private:
    std::unordered_map<const SectionSpec*, std::vector<const ValueSpec*>> of_section_;
};

}  // namespace velk::input::amesp
