// What editing a text in place works with, and one function for each kind of record.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

#include "in_place/line_style.hpp"
#include "in_place/line_table.hpp"
#include "in_place/patch.hpp"
#include "in_place/problems.hpp"

namespace velk::input::amesp::in_place {

struct Revision {
    const InputSchema& schema;
    bool preserve_unknown;
    bool drop_header_words;
    const LineTable& lines;
    Patch& patch;
    Problems& problems;
    bool close_open_section = false;  // the edited document says that the last section, which has no "end", has one
};

// The line that a record read from the text stands in.
template <class Record>
std::size_t line_of(const Record& record) {
    return static_cast<std::size_t>(record.location->line - 1);
}

// In all of these `before` is what the text holds and `after` what it shall hold.
void edit_directives(Revision& revision, const AIPData& before, const AIPData& after);
void edit_method_tokens(Revision& revision, const AIPData& before, const AIPData& after);
void edit_sections(Revision& revision, const AIPData& before, const AIPData& after);

// A section of the text that stays, or one that gives way to a new geometry and keeps only its comments.
struct SectionChange {
    const Section& before;
    const Section& after;
    const SectionLines& extent;
    std::string opening;    // the header up to the end of its name, as the text shall hold it
    SectionParseMode mode;  // of the section under that header
    bool replaced;
};
// Returns the header as the text shall hold it.
std::string edit_header(Revision& revision, const SectionChange& change);
void edit_entries(Revision& revision, const SectionChange& change);
void edit_atoms(Revision& revision, const SectionChange& change);

// The line of an entry that the section did not have; empty when no line reads back as the entry.
inline constexpr LineStyle usual_entry_style = {"  ", " ", 0, {}};
std::string entry_line(const Revision& revision, std::string_view opening, const Section& section,
                       const SectionEntry& entry, const LineStyle& style);

// The header line of a section; empty when none reads back as the section's name and arguments.
std::string header_line(const Revision& revision, const Section& section);

// A kept line as rendering would write it; nothing when it would not read back as one.
std::optional<std::string> raw_line(const Revision& revision, std::string_view opening, std::string_view raw);

// All lines of a section that the text did not have; none when it cannot be written, or nothing of what it should hold.
std::vector<std::string> section_lines(Revision& revision, const Section& section);

}  // namespace velk::input::amesp::in_place
