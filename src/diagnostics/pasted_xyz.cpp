// Finds the count of atoms, and the title after it, that begin an XYZ file.
#include "diagnostics/pasted_xyz.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/atom_fault.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "model/numbers.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

bool is_record(const LineTable& lines, std::size_t line) {
    return !lines.is_blank(line) && !lines.is_comment(line);
}

// The first line from that one on, and before `stop`, that is neither blank nor comment.
std::size_t next_record(const LineTable& lines, std::size_t line, std::size_t stop) {
    while (line < stop && !is_record(lines, line)) {
        ++line;
    }
    return line;
}

std::optional<std::int64_t> atom_count(std::string_view text) {
    const std::optional<std::int64_t> count = read_int64(text);
    return count && *count > 0 ? count : std::nullopt;
}

// Whether a line is an atom, or is none by mistake.
bool was_meant_as_atom(std::string_view line) {
    std::string_view rest = line;
    take_word(rest);
    int numbers = 0;
    while (numbers < 3 && read_real(take_word(rest))) {
        ++numbers;
    }
    return numbers == 3 || resembles_atom(line);
}

std::int64_t count_records(const LineTable& lines, std::size_t line, std::size_t stop) {
    std::int64_t count = 0;
    for (line = next_record(lines, line, stop); line < stop; line = next_record(lines, line + 1, stop)) {
        ++count;
    }
    return count;
}

// The line after the count, unless it is an atom already.
std::optional<std::size_t> title_after(const LineTable& lines, std::size_t line, std::size_t stop, std::int64_t count) {
    const std::size_t title = line + 1;
    const std::string_view text = trim_view(lines.raw(title));
    if (!is_record(lines, title) || is_marked(classify(text))) {
        return std::nullopt;
    }
    const bool is_title = !was_meant_as_atom(text) || count_records(lines, title + 1, stop) == count;
    return is_title ? std::optional(title) : std::nullopt;
}

TextEdit comment_out(const LineTable& lines, std::string_view text) {
    return edit_of(lines, text.substr(0, 0), "# ");
}

void add_section(const DetectorInput& input, const Section& section, const SectionLines& extent, Detections& found) {
    const LineTable& lines = input.lines;
    const std::size_t line = next_record(lines, extent.header + 1, extent.stop);
    if (line == extent.stop || next_record(lines, line + 1, extent.stop) == extent.stop) {
        return;
    }
    const std::string_view text = trim_view(lines.raw(line));
    const std::optional<std::int64_t> count = atom_count(text);
    if (!count) {
        return;
    }
    const std::optional<std::size_t> title = title_after(lines, line, extent.stop, *count);
    if (title && section.arguments.empty() && read_int64(lines.raw(*title))) {
        return;  // charge and multiplicity, one below the other
    }
    Detected detected =
        finding_in(input, line, text, Severity::error, codes::inp::pasted_xyz,
                   "'" + std::string(text) + "' is the number of atoms that an XYZ file begins with" +
                       (title ? ", and the next line its title: neither is" : ": it is not") + " part of the geometry");
    Fix fix{title ? "make comments of both lines" : "make a comment of the line",
            Applicability::certain,
            {comment_out(lines, text)}};
    if (title) {
        const std::string_view title_text = trim_view(lines.raw(*title));
        fix.edits.push_back(comment_out(lines, title_text));
        detected.covers.push_back(extent_of(lines, *title));
        detected.diagnostic.related.push_back({"the title is here", range_in(input, *title, title_text), {}});
    }
    detected.diagnostic.fixes.push_back(std::move(fix));
    found.push_back(std::move(detected));
}

}  // namespace

Detections find_pasted_xyz(const DetectorInput& input) {
    Detections found;
    for (std::size_t i = 0; i < input.document.sections.size(); ++i) {
        const Section& section = input.document.sections[i];
        if (section.parse_mode == SectionParseMode::cartesian_coordinates) {
            add_section(input, section, input.lines.sections()[i], found);
        }
    }
    return found;
}

}  // namespace velk::input::amesp
