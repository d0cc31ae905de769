// Sections that the text did not have, laid out as rendering would.
#include <string>
#include <vector>

#include <velk/core/text_view.hpp>

#include "in_place/atom_lines.hpp"
#include "in_place/read_back.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"

namespace velk::input::amesp::in_place {
namespace {

using core::text::trim_view;
using Lines = std::vector<std::string>;

constexpr std::string_view body_indent = "  ";

std::string in_section(std::string what, const Section& section) {
    return std::move(what) + " of section '>" + section.name + "'";
}

void add_atoms(Revision& revision, const Section& section, SectionParseMode mode, Lines& lines) {
    if (mode != SectionParseMode::cartesian_coordinates) {
        if (!section.atoms.empty()) {
            revision.problems.cannot_write(in_section("The atoms", section), section.location);
        }
        return;
    }
    for (std::size_t i = 0; i < section.atoms.size(); ++i) {
        std::string line = atom_line(section.atoms[i], body_indent, {});
        if (line.empty()) {
            revision.problems.cannot_write(in_section("Atom " + std::to_string(i + 1), section),
                                           section.atoms[i].location);
        } else {
            lines.push_back(std::move(line));
        }
    }
}

void add_entries(Revision& revision, const Section& section, Lines& lines) {
    for (const SectionEntry& entry : section.entries) {
        std::string line = entry_line(revision, opening_of(lines.front()), section, entry, usual_entry_style);
        if (line.empty()) {
            revision.problems.cannot_write(in_section("Entry '" + entry.key + "'", section), entry.location);
        } else {
            lines.push_back(std::move(line));
        }
    }
}

void add_raw_lines(Revision& revision, const Section& section, Lines& lines) {
    for (const std::string& raw : section.raw_lines) {
        if (std::optional<std::string> line = raw_line(revision, opening_of(lines.front()), raw)) {
            lines.push_back(std::move(*line));
        } else {
            revision.problems.cannot_write(in_section("A kept line", section), section.location);
        }
    }
}

}  // namespace

std::optional<std::string> raw_line(const Revision& revision, std::string_view opening, std::string_view raw) {
    std::string line = raw.empty() ? std::string() : std::string(body_indent) + std::string(trim_view(raw));
    const std::optional<Section> read = read_section(opening, line + '\n', revision.schema);
    if (!read || read->raw_lines != std::vector{line}) {
        return std::nullopt;
    }
    return line;
}

std::vector<std::string> section_lines(Revision& revision, const Section& section) {
    Lines lines{header_line(revision, section)};
    const std::optional<Section> read = read_section(lines.front(), {}, revision.schema);
    if (!read) {
        revision.problems.cannot_write("Section '>" + section.name + "'", section.location);
        return {};
    }
    add_atoms(revision, section, read->parse_mode, lines);
    add_entries(revision, section, lines);
    add_raw_lines(revision, section, lines);
    const bool asks_for_lines = !section.atoms.empty() || !section.entries.empty() || !section.raw_lines.empty();
    if (asks_for_lines && lines.size() == 1 && read->arguments.empty()) {
        return {};
    }
    lines.emplace_back("end");
    return lines;
}

}  // namespace velk::input::amesp::in_place
