// Finds words that nothing reads, in headers and after coordinates, and titles that are read as atoms.
#include "diagnostics/extra_words.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/elements.hpp"
#include "diagnostics/header_entries.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "in_place/units.hpp"
#include "model/key.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

bool names_angstrom(std::string_view word) {
    constexpr std::array<std::string_view, 3> spellings = {"ang", "\u00c5", "\u212b"};
    const std::string lowered = normalize_key(word);
    return std::any_of(spellings.begin(), spellings.end(),
                       [&](std::string_view each) { return lowered.find(each) != std::string::npos; });
}

class ExtraWordFinder {
public:
    explicit ExtraWordFinder(const DetectorInput& input) : input_(input) {}

    Detections run() {
        for (const Section& section : input_.document.sections) {
            if (section.charge && section.multiplicity) {
                check_geometry_header(section);
            } else if (section.parse_mode == SectionParseMode::key_value && !section.arguments.empty()) {
                check_header_of_entries(section);
            }
            for (const AtomRecord& atom : section.atoms) {
                check_atom(atom);
            }
        }
        return std::move(found_);
    }

private:
    static std::size_t line_of(const SourceLocation& location) { return static_cast<std::size_t>(location.line - 1); }

    std::string_view header_of(const Section& section) const {
        return trim_view(input_.lines.raw(line_of(*section.location)));
    }

    void add(std::size_t line, std::string_view words, Severity severity, std::string message) {
        found_.push_back(finding_in(input_, line, words, severity, codes::inp::extra_words, std::move(message)));
        found_.back().covers.clear();
    }

    void check_header_of_entries(const Section& section) {
        const HeaderEntries header = split_header(header_of(section), input_.schema.rules);
        if (header.entries.empty() && !header.has_end) {
            add(line_of(*section.location), header.words, Severity::warning,
                shown_name(header.words) + " after the name of the section is not read");
        }
    }

    void check_geometry_header(const Section& section) {
        const std::size_t line = line_of(*section.location);
        std::string_view rest = header_of(section).substr(1);
        for (int i = 0; i < 3; ++i) {
            take_word(rest);  // name, charge and multiplicity
        }
        const std::string_view all = trim_view(rest);
        bool is_read = true;
        for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
            if (in_place::names_other_unit(word)) {
                return add(line, word, Severity::error,
                           shown_name(word) + " is not read: the coordinates are taken in angstrom");
            }
            is_read = is_read && names_angstrom(word);
        }
        if (!is_read) {
            add(line, all, Severity::warning, shown_name(all) + " after charge and multiplicity is not read");
        }
    }

    void check_atom(const AtomRecord& atom) {
        constexpr std::size_t shortest_word = 4;  // labels of atoms that begin with no symbol are shorter
        const std::size_t line = line_of(*atom.location);
        std::string_view rest = input_.lines.raw(line);
        const std::string_view symbol = take_word(rest);
        if (symbol.size() >= shortest_word && leading_letters(symbol).size() == symbol.size()) {
            return add(line, trim_view(input_.lines.raw(line)), Severity::error,
                       shown_name(symbol) +
                           " is no symbol of an element, but this line is read as an atom: a title "
                           "needs a '#' before it");
        }
        const std::string_view first = take_word(rest);
        take_word(rest);
        const std::string_view third = take_word(rest);
        const std::string_view words = trim_view(rest);
        if (words.empty()) {
            return;
        }
        const std::string_view next = take_word(rest);
        if (!read_real(next)) {
            return add(line, words, Severity::note, shown_name(words) + " after the coordinates is not read");
        }
        const bool is_shifted =
            read_int32(first) && third.find('.') != std::string_view::npos && next.find('.') != std::string_view::npos;
        if (is_shifted) {
            return add(line, first, Severity::warning,
                       shown_name(first) + " between symbol and coordinates is read as x, and " + shown_name(next) +
                           " is not read");
        }
        add(line, words, Severity::warning,
            shown_name(words) + " after the coordinates is not read: is it a further coordinate?");
    }

    const DetectorInput& input_;
    Detections found_;
};

}  // namespace

Detections find_extra_words(const DetectorInput& input) {
    return ExtraWordFinder(input).run();
}

}  // namespace velk::input::amesp
