// Misspelt names given the name that was probably meant.
#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include <velk/input/amesp/diagnostics.hpp>

#include "validation/document_check.hpp"

namespace velk::input::amesp {

// A name that is there already is not given again: two records of one name are another fault, and which of them counts
// is not for a fix to say.
class Renames {
public:
    // All of these must outlive it. The document must have been read from the text.
    Renames(const AIPData& document, const InputSchema& schema, const TextPositions& text)
        : document_(document), schema_(schema), text_(text) {}

    // The fix that gives the record the name, if it may be given; the name is taken from then on.
    std::optional<Fix> fix(const IssueRecords& records, const std::string& name);

private:
    // Kind, line of the section around an entry, canonical name. Ordered: an input cannot aim at its cost.
    using Key = std::array<std::string, 3>;

    bool changes_more(const IssueRecords& records, const std::string& name) const;
    void take_names_of_document();
    bool takes(const IssueRecords& records, const std::string& name);
    bool may_repeat(const std::string& section) const;
    std::string_view word_of(const IssueRecords& records) const;

    const AIPData& document_;
    const InputSchema& schema_;
    const TextPositions& text_;
    std::set<Key> taken_;
    bool is_filled_ = false;
};

}  // namespace velk::input::amesp
