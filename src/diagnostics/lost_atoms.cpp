// Finds atoms that are not in the geometry: among the lines that the parser could not read, those that look like atoms.
#include "diagnostics/lost_atoms.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>

#include "diagnostics/atom_fault.hpp"
#include "diagnostics/lines_of_text.hpp"

namespace velk::input::amesp {
namespace {

// The lines, in their order, that could not be read as atoms but were meant to be some.
std::vector<std::size_t> lines_like_atoms(const DetectorInput& input) {
    std::vector<std::size_t> lines;
    for (const ParseWarning& warning : input.document.warnings) {
        if (warning.code == codes::invalid_xyz_record) {
            const auto line = static_cast<std::size_t>(warning.location->line - 1);
            if (resembles_atom(core::text::trim_view(input.lines.raw(line)))) {
                lines.push_back(line);
            }
        }
    }
    return lines;
}

Detected detection_of(const DetectorInput& input, std::size_t line, const Section& section, std::size_t lost) {
    AtomFault fault = find_atom_fault(core::text::trim_view(input.lines.raw(line)));
    const std::size_t read = section.atoms.size();
    Detected detected = finding_in(input, line, fault.place, Severity::error, codes::inp::lost_atom,
                                   std::move(fault.message) + ": this atom is NOT in the geometry (" +
                                       std::to_string(read) + " of " + std::to_string(read + lost) + " read)");
    if (!fault.changes.empty()) {
        Fix fix{"write the coordinates as " + fault.numbers, fault.applicability, {}};
        for (WordChange& change : fault.changes) {
            fix.edits.push_back(edit_of(input.lines, change.word, std::move(change.text)));
        }
        detected.diagnostic.fixes.push_back(std::move(fix));
    }
    if (read == 0) {
        detected.explains = {codes::empty_geometry};
    }
    return detected;
}

}  // namespace

Detections find_lost_atoms(const DetectorInput& input) {
    const std::vector<std::size_t> lines = lines_like_atoms(input);
    Detections found;
    found.reserve(lines.size());
    auto section = input.document.sections.begin();
    for (auto line = lines.begin(); line != lines.end(); ++section) {
        const std::size_t stop = input.lines.section_at(section->location->line - 1).stop;
        auto last = line;
        while (last != lines.end() && *last < stop) {
            ++last;
        }
        const auto lost = static_cast<std::size_t>(last - line);
        for (; line != last; ++line) {
            found.push_back(detection_of(input, *line, *section, lost));
        }
    }
    return found;
}

}  // namespace velk::input::amesp
