// Sections as a whole: which stay, go, are replaced or new.
#include <algorithm>
#include <string>
#include <vector>

#include <velk/core/text_view.hpp>

#include "in_place/partners.hpp"
#include "in_place/read_back.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"
#include "model/geometry_names.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp::in_place {
namespace {

using core::text::trim_view;

bool holds_atoms(const Revision& revision, const Section& section) {
    return revision.schema.section_parse_mode(section.name) == SectionParseMode::cartesian_coordinates;
}

// A geometry without location stands where the first one was that the document no longer has.
void let_geometry_take_over(const Revision& revision, const AIPData& before, const AIPData& after,
                            std::vector<std::size_t>& partner) {
    const auto is_geometry = [&](const Section& section) {
        return is_geometry_section(revision.schema.canonical_section(section.name));
    };
    const std::vector<bool> removed = without_partner(before.sections.size(), partner);
    for (std::size_t i = 0; i < after.sections.size(); ++i) {
        if (partner[i] != no_partner || !is_geometry(after.sections[i]) || !holds_atoms(revision, after.sections[i])) {
            continue;
        }
        for (std::size_t old = 0; old < removed.size(); ++old) {
            if (removed[old] && is_geometry(before.sections[old])) {
                partner[i] = old;
                return;
            }
        }
    }
}

// Of a geometry that gives way, only blank lines, comments and atoms mean something to the new one.
void drop_what_a_new_geometry_does_not_know(Revision& revision, const SectionChange& change) {
    auto atom = change.before.atoms.begin();
    for (std::size_t line = change.extent.header + 1; line < change.extent.stop; ++line) {
        if (atom != change.before.atoms.end() && line_of(*atom) == line) {
            ++atom;
            continue;
        }
        const LineKind kind = classify(trim_view(revision.lines.raw(line)));
        if (kind != LineKind::blank && kind != LineKind::comment) {
            revision.patch.drop(line);
        }
    }
}

void edit_raw_lines_of_new_geometry(Revision& revision, const SectionChange& change) {
    for (const std::string& raw : change.after.raw_lines) {
        if (std::optional<std::string> line = raw_line(revision, change.opening, raw)) {
            revision.patch.insert(change.extent.stop, InsertOrder::body, std::move(*line));
        } else {
            revision.problems.cannot_write("A kept line of section '>" + change.after.name + "'", std::nullopt);
        }
    }
}

void edit_section(Revision& revision, const Section& before, const Section& after) {
    const SectionLines& extent = revision.lines.section_at(line_of(before));
    const bool replaced = !after.location;
    const SectionParseMode mode = replaced ? revision.schema.section_parse_mode(after.name) : before.parse_mode;
    SectionChange change{before, after, extent, {}, mode, replaced};
    change.opening = opening_of(edit_header(revision, change));
    if (replaced) {
        drop_what_a_new_geometry_does_not_know(revision, change);
    }
    if (replaced) {
        edit_raw_lines_of_new_geometry(revision, change);
    } else if (after.raw_lines != before.raw_lines) {
        revision.problems.not_of_this_text("The list of kept lines of section '>" + after.name + "'", after.location);
    }
    edit_entries(revision, change);
    edit_atoms(revision, change);
    revision.close_open_section = revision.close_open_section || (after.terminated && !extent.terminated);
}

void add_section(Revision& revision, const Section& section, std::size_t slot) {
    std::vector<std::string> lines = section_lines(revision, section);
    if (lines.empty()) {
        return;
    }
    revision.patch.insert_after_blank(slot, InsertOrder::section, std::move(lines.front()));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        revision.patch.insert(slot, InsertOrder::section, std::move(lines[i]));
    }
    if (slot < revision.lines.size()) {
        revision.patch.insert(slot, InsertOrder::section, {});
    }
}

// With one of the blank lines around it. The one after it stays below a comment, which would become a remark on what
// follows.
void drop_section(Revision& revision, const Section& section) {
    const LineTable& lines = revision.lines;
    const SectionLines& extent = lines.section_at(line_of(section));
    const std::size_t stop = extent.stop + (extent.terminated ? 1 : 0);
    revision.patch.drop(extent.header, stop);
    const auto drop_blank = [&](std::size_t line) {
        const bool can_go = lines.is_blank(line) && !revision.patch.drops(line);
        if (can_go) {
            revision.patch.drop(line);
        }
        return can_go;
    };
    if (extent.header > 0 && (drop_blank(extent.header - 1) || lines.is_comment(extent.header - 1))) {
        return;
    }
    if (stop < lines.size()) {
        drop_blank(stop);
    }
}

}  // namespace

void edit_sections(Revision& revision, const AIPData& before, const AIPData& after) {
    const auto found = partners(before.sections, after.sections);
    if (!found) {
        return revision.problems.not_of_this_text("The list of sections", std::nullopt);
    }
    std::vector<std::size_t> partner = *found;
    let_geometry_take_over(revision, before, after, partner);
    const std::vector<bool> removed = without_partner(before.sections.size(), partner);
    for (std::size_t i = 0; i < removed.size(); ++i) {
        if (removed[i]) {
            drop_section(revision, before.sections[i]);
        }
    }
    NextPartner next_partner(*found);  // the place of a replaced geometry says nothing of the order
    for (std::size_t i = 0; i < after.sections.size(); ++i) {
        if (partner[i] != no_partner) {
            edit_section(revision, before.sections[partner[i]], after.sections[i]);
            continue;
        }
        const std::size_t next = next_partner.from(i);
        add_section(revision, after.sections[i],
                    next == no_partner ? revision.lines.before_trailing_notes()
                                       : revision.lines.above_remark(line_of(before.sections[next])));
    }
}

}  // namespace velk::input::amesp::in_place
