// Words and digits that canonical text has no place for.
#include <velk/core/text_view.hpp>

#include "formatting/changes.hpp"
#include "model/geometry_names.hpp"

namespace velk::input::amesp::formatting {
namespace {

using core::text::take_word;
using core::text::trim_view;

// Whether a line "name value" has words that are in neither: a name ends at any white space, a value begins after a
// blank or tab.
bool hides_words(std::string_view line) {
    take_word(line);
    return !trim_view(line.substr(0, line.find_first_of(" \t"))).empty();
}

void add_hidden_words(Changes& changes, const AIPData& data, const TextPositions& lines) {
    const auto lose_words = [&](const std::optional<SourceLocation>& location) {
        changes.lose(location, codes::inp::dropped_words, "Words between a name and its value would be lost.");
    };
    for (const Directive& directive : data.directives) {
        if (directive.location &&
            hides_words(lines.line(directive.location->line).substr(directive.location->column))) {
            lose_words(directive.location);
        }
    }
    for (const Section& section : data.sections) {
        for (const SectionEntry& entry : section.entries) {
            if (entry.raw_line.find('=') == std::string::npos && hides_words(entry.raw_line)) {
                lose_words(entry.location);
            }
        }
    }
}

}  // namespace

void add_dropped_words(Changes& changes, const AIPData& data, const TextPositions& text) {
    add_hidden_words(changes, data, text);
    for (const Section& section : data.sections) {
        if (section.name == xyz_section && section.charge && section.multiplicity && section.arguments.size() > 2) {
            changes.lose(section.location, codes::inp::dropped_words,
                         "Words after charge and multiplicity in the >xyz header would be lost.");
        }
        for (const AtomRecord& atom : section.atoms) {
            std::string_view rest = atom.raw_line;
            for (int word = 0; word < 4; ++word) {
                take_word(rest);
            }
            if (!trim_view(rest).empty()) {
                changes.lose(atom.location, codes::inp::dropped_words,
                             "Words after the coordinates of an atom would be lost.");
            }
            if (!same_number(atom.x, rounded(atom.x)) || !same_number(atom.y, rounded(atom.y)) ||
                !same_number(atom.z, rounded(atom.z))) {
                changes.note(atom.location, codes::inp::rounded, "Coordinates would be rounded to ten decimals.");
            }
        }
    }
}

}  // namespace velk::input::amesp::formatting
