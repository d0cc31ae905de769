// Finds characters that are not what they seem: of each line those that surely mean something else, and those that may.
#include "diagnostics/invisible_characters.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/core/text_view.hpp>

#include "diagnostics/line_parts.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/odd_characters.hpp"
#include "model/geometry_names.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// The word around a place, or nothing of a long one.
std::string_view word_around(std::string_view line, std::size_t offset) {
    constexpr std::size_t longest = 80;
    constexpr std::string_view blanks = " \t";
    const std::size_t before = line.find_last_of(blanks, offset);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(line.find_first_of(blanks, offset), line.size());
    return end - begin > longest ? std::string_view() : line.substr(begin, end - begin);
}

std::string message_of(std::string_view line, const std::vector<OddCharacter>& odd) {
    const OddCharacter& first = odd.front();
    std::string message = code_point(first.code) + " (" + std::string(first.name) + ")";
    const std::string_view word = word_around(line, first.offset);
    message += word.empty() ? "" : " in '" + with_odd_characters_shown(word) + "'";
    message += first.plain == ' '    ? " is no blank to the format: write a blank"
               : first.plain == '\0' ? " cannot be seen, but is read: remove it"
                                     : " is not '" + std::string(1, first.plain) + "' to the format: write '" +
                                           std::string(1, first.plain) + "'";
    if (odd.size() > 1) {
        message += " (and " + std::to_string(odd.size() - 1) + " more in this line)";
    }
    return message;
}

// Of one line, all of one applicability.
struct Found {
    std::vector<OddCharacter> odd;
    Severity severity = Severity::note;
    std::vector<Extent> covers;
};

Detected detection_of(const DetectorInput& input, std::size_t line, const Found& found, Applicability applicability) {
    const std::string_view raw = input.lines.raw(line);
    const OddCharacter& first = found.odd.front();
    Detected detected = finding_in(input, line, raw.substr(first.offset, first.bytes), found.severity,
                                   codes::inp::invisible_character, message_of(raw, found.odd));
    detected.covers = found.covers;
    Fix fix{"write plain characters", applicability, {}};
    for (const OddCharacter& odd : found.odd) {
        fix.edits.push_back(edit_of(input.lines, raw.substr(odd.offset, odd.bytes),
                                    odd.plain == '\0' ? std::string() : std::string(1, odd.plain)));
    }
    detected.diagnostic.fixes.push_back(std::move(fix));
    return detected;
}

class InvisibleFinder {
public:
    explicit InvisibleFinder(const DetectorInput& input) : input_(input) {}

    Detections run() {
        const LineTable& lines = input_.lines;
        std::size_t line = 0;
        for (std::size_t at = find_beyond_ascii(lines.text()); at < lines.text().size();) {
            while (lines.begin_of(line + 1) <= at) {
                ++line;
            }
            add(line);
            at = lines.begin_of(line + 1);
            at += find_beyond_ascii(lines.text().substr(at));
        }
        return std::move(found_);
    }

private:
    // The index of the section that a line is in the body of; the number of sections for none.
    std::size_t section_of(std::size_t line) {
        const std::vector<SectionLines>& sections = input_.lines.sections();
        while (section_ < sections.size() && sections[section_].stop < line) {
            ++section_;
        }
        return section_ < sections.size() && sections[section_].header < line ? section_ : sections.size();
    }

    void add(std::size_t line) {
        const std::string_view raw = input_.lines.raw(line);
        std::vector<OddCharacter> odd = find_odd_characters(raw);
        if (classify(trim_view(raw)) == LineKind::comment) {
            std::erase_if(odd, [](const OddCharacter& each) { return !each.turns_text; });
            add_found(line, {std::move(odd), Severity::error, {}}, Applicability::certain);
            return;
        }
        if (odd.empty()) {
            return;
        }
        const std::size_t section = section_of(line);
        const bool is_inside = section < input_.lines.sections().size();
        sort_out(line, odd, is_inside ? &input_.document.sections[section] : nullptr);
        const std::string plain = with_plain_characters(raw);
        if (!is_inside) {
            explain_missing(trim_view(plain));
        } else if (is_section_end(trim_view(plain))) {
            explain_swallowed_lines(line, input_.lines.sections()[section]);
        }
    }

    // A method line or a header that is not read as one.
    void explain_missing(std::string_view plain) {
        const LineKind kind = classify(plain);
        if (kind == LineKind::method_line) {
            found_.back().explains = {codes::missing_method_line};
        } else if (kind == LineKind::section_header) {
            std::string_view name = plain.substr(1);
            if (is_geometry_section(input_.schema.rules.canonical_section(core::text::take_word(name)))) {
                found_.back().explains = {codes::missing_geometry};
            }
        }
    }

    void sort_out(std::size_t line, const std::vector<OddCharacter>& odd, const Section* section) {
        const std::vector<LinePart> parts = parts_of_line(input_, line, section);
        Found certain;
        Found likely;
        auto part = parts.begin();
        for (const OddCharacter& each : odd) {
            while (part->end <= each.offset) {
                ++part;
            }
            Found& found = part->applicability == Applicability::certain ? certain : likely;
            found.odd.push_back(each);
            found.severity = std::max(found.severity, part->severity);
            const Extent extent = extent_of(input_.lines, line);
            const std::size_t stop = std::min<std::size_t>(part->explains_to, extent.length);
            if (part->explains_from < stop) {
                found.covers.push_back({extent.offset + part->explains_from, stop - part->explains_from});
            }
        }
        add_found(line, certain, Applicability::certain);
        add_found(line, likely, Applicability::likely);
    }

    void add_found(std::size_t line, const Found& found, Applicability applicability) {
        if (!found.odd.empty()) {
            found_.push_back(detection_of(input_, line, found, applicability));
        }
    }

    // An 'end' that is not read as one.
    void explain_swallowed_lines(std::size_t line, const SectionLines& section) {
        const std::size_t begin = input_.lines.begin_of(line);
        found_.back().covers = {{begin, input_.lines.begin_of(section.stop) - begin}};
        if (!section.terminated) {
            found_.back().explains = {codes::inp::missing_end, codes::unterminated_section};
        }
    }

    const DetectorInput& input_;
    std::size_t section_ = 0;
    Detections found_;
};

}  // namespace

Detections find_invisible_characters(const DetectorInput& input) {
    return InvisibleFinder(input).run();
}

}  // namespace velk::input::amesp
