// Lines that stand elsewhere in canonical text.
#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>

#include "diagnostics/places.hpp"
#include "formatting/changes.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp::formatting {
namespace {

using core::text::trim_view;

SourceLocation location_of(const TextPositions& text, std::uint64_t number) {
    const TextRange range = range_of_line(text, number);
    return {range.start.line, range.start.column, range.length};
}

// Directives come first, then the method line, then the sections.
void add_records_out_of_order(Changes& changes, const AIPData& data) {
    const std::uint64_t method = data.method_tokens.empty() ? UINT64_MAX : data.method_tokens[0].location->line;
    const std::uint64_t section = data.sections.empty() ? UINT64_MAX : data.sections[0].location->line;
    for (const Directive& directive : data.directives) {
        if (directive.location->line > std::min(method, section)) {
            changes.note(directive.location, codes::inp::moved_line, "This directive would be moved to the front.");
        }
    }
    if (method != UINT64_MAX && method > section) {
        changes.note(data.method_tokens[0].location, codes::inp::moved_line,
                     "The method line would be moved above the sections.");
    }
}

std::uint64_t last_body_line(const Section& section) {
    return section.location->line + section.entries.size() + section.atoms.size() + section.raw_lines.size();
}

void add_moved_in(Changes& changes, const Section& section, const TextPositions& lines) {
    std::set<std::uint64_t> records;
    for (const SectionEntry& entry : section.entries) {
        records.insert(entry.location->line);
    }
    for (const AtomRecord& atom : section.atoms) {
        records.insert(atom.location->line);
    }
    const std::uint64_t last_record = records.empty() ? 0 : *records.rbegin();
    for (std::uint64_t number = section.location->line + 1; number < last_record; ++number) {
        if (!records.contains(number)) {
            changes.note(location_of(lines, number), codes::inp::moved_line,
                         "This line would be moved to the end of its section.");
        }
    }
}

// The lines outside of sections, with what follows a header.
std::vector<std::uint64_t> top_level_lines(const AIPData& data, const TextPositions& lines) {
    std::vector<std::uint64_t> numbers;
    auto section = data.sections.begin();
    for (std::uint64_t number = 1; number <= last_line(lines); ++number) {
        numbers.push_back(number);
        if (section != data.sections.end() && section->location->line == number) {
            number = last_body_line(*section) + (section->terminated ? 1 : 0);
            ++section;
        }
    }
    return numbers;
}

void add_moved_comments(Changes& changes, const AIPData& data, const TextPositions& lines) {
    bool content_seen = false;
    std::vector<std::uint64_t> kept;  // lines that wait for a record after them
    for (const std::uint64_t number : top_level_lines(data, lines)) {
        const LineKind kind = classify(trim_view(lines.line(number)));
        if (is_marked(kind)) {
            for (const std::uint64_t moved : kept) {
                changes.note(location_of(lines, moved), codes::inp::moved_line,
                             "This line would be moved to the end of the file.");
            }
            kept.clear();
        } else if (kind != LineKind::blank && (kind != LineKind::comment || content_seen)) {
            kept.push_back(number);
        }
        content_seen = content_seen || (kind != LineKind::blank && kind != LineKind::comment);
    }
}

// How many blank lines stand before each line outside of sections.
std::vector<std::size_t> blank_runs(const AIPData& data, const TextPositions& lines) {
    std::vector<std::size_t> runs;
    std::size_t blank = 0;
    for (const std::uint64_t number : top_level_lines(data, lines)) {
        if (trim_view(lines.line(number)).empty()) {
            ++blank;
        } else {
            runs.push_back(std::exchange(blank, 0));
        }
    }
    return runs;
}

void add_first_blank_line(Changes& changes, const AIPData& data, const TextPositions& lines) {
    for (const std::uint64_t number : top_level_lines(data, lines)) {
        if (trim_view(lines.line(number)).empty()) {
            changes.note(location_of(lines, number), codes::inp::moved_blank_lines,
                         "Blank lines would be laid out anew.");
            return;
        }
    }
}

}  // namespace

void add_moved_lines(Changes& changes, const AIPData& data, const TextPositions& lines, const AIPData& read_back,
                     const TextPositions& rendered) {
    add_records_out_of_order(changes, data);
    for (const Section& section : data.sections) {
        add_moved_in(changes, section, lines);
    }
    add_moved_comments(changes, data, lines);
    if (blank_runs(data, lines) != blank_runs(read_back, rendered)) {
        add_first_blank_line(changes, data, lines);
    }
}

}  // namespace velk::input::amesp::formatting
