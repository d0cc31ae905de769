// The rules with all that they know of a breach. `InputSchema::validate` hands on the issues alone.
#pragma once

#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp {

// The records that an issue concerns, as pointers into document and schema; null where it concerns none.
struct IssueRecords {
    const Directive* directive = nullptr;
    const MethodToken* token = nullptr;
    const Section* section = nullptr;  // also the one around an entry
    const SectionEntry* entry = nullptr;
    const ValueSpec* value = nullptr;  // what the value was held against
    const Section* first = nullptr;    // of a section that stands once too often: the one before it
};

struct RuleFinding {
    ValidationIssue issue;
    IssueRecords records;
};

class DocumentCheck {
public:
    // In the order of `InputSchema::validate`.
    static std::vector<RuleFinding> run(const InputSchema& schema, const AIPData& data);
};

}  // namespace velk::input::amesp
