// What must hold of every edited document that is written into a text.
#include "in_place/in_place_laws.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <velk/core/text.hpp>
#include <velk/input/amesp/parser.hpp>

#include "in_place/untouched_lines.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

std::string bits(double value) {
    std::uint64_t number = 0;
    std::memcpy(&number, &value, sizeof number);
    return std::to_string(number);
}

// Carriage returns at the very end of a text belong to the last line; one of them is part of a line end once a line
// feed is added.
std::string without_carriage_returns(std::string line) {
    while (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return line;
}

// All of a section that edits may change, as one text.
std::string described(const Section& section, bool known_only) {
    std::string text = ">" + section.name;
    for (const std::string& argument : section.arguments) {
        text += " [" + argument + "]";
    }
    for (const SectionEntry& entry : section.entries) {
        text += entry.known || !known_only ? "\n[" + entry.key + "] [" + core::text::trim(entry.value) + "]" : "";
    }
    for (const AtomRecord& atom : section.atoms) {
        text += "\n" + atom.symbol + " " + bits(atom.x) + " " + bits(atom.y) + " " + bits(atom.z);
    }
    // A new geometry takes over the comments of the old one.
    for (const std::string& line : section.name == "xyz" ? std::vector<std::string>() : section.raw_lines) {
        text += "\n" + without_carriage_returns(line);
    }
    return text;
}

// A new geometry takes over the spelling of charge and multiplicity, too, where the numbers stay: "01".
Section with_plain_numbers(Section section) {
    if (section.charge && section.multiplicity && section.arguments.size() >= 2) {
        for (std::string* const word : {&section.arguments[0], &section.arguments[1]}) {
            *word = std::to_string(std::strtol(word->c_str(), nullptr, 10));
        }
    }
    return section;
}

// A document as text. The place of a new geometry among the sections is left open.
std::string described(const AIPData& data, bool known_only, bool geometry_last) {
    std::string text;
    for (const Directive& directive : data.directives) {
        text += directive.known || !known_only ? "%[" + directive.name + "] [" + directive.value + "]\n" : "";
    }
    for (const MethodToken& token : data.method_tokens) {
        text += token.known || !known_only ? "![" + token.canonical + "]\n" : "";
    }
    std::string geometries;
    for (const Section& section : data.sections) {
        if (section.known || !known_only) {
            const bool new_geometry = geometry_last && section.name == "xyz";
            std::string& place = new_geometry ? geometries : text;
            place += described(new_geometry ? with_plain_numbers(section) : section, known_only) + "\n";
        }
    }
    return text + geometries;
}

// Whether the untouched lines of `text` are all in `result`, in their order. The last one may have got a line end.
std::string first_lost_line(const std::string& text, const std::vector<bool>& untouched, const std::string& result) {
    const std::vector<std::string> old_lines = whole_lines(text);
    const std::vector<std::string> new_lines = whole_lines(result);
    auto place = new_lines.begin();
    for (std::size_t i = 0; i < old_lines.size(); ++i) {
        if (!untouched[i]) {
            continue;
        }
        const std::string& line = old_lines[i];
        place = std::find_if(place, new_lines.end(), [&](const std::string& candidate) {
            return candidate == line ||
                   (line.back() != '\n' && (candidate == line + "\n" || candidate == line + "\r\n"));
        });
        if (place == new_lines.end()) {
            return "line " + std::to_string(i + 1) + ": " + line;
        }
        ++place;
    }
    return {};
}

// How many lines the records that are new in a document may take at most.
std::size_t room_for_new_records(const AIPData& before, const AIPData& after) {
    std::size_t lines = after.method_tokens.empty() ? 0 : 1;
    for (const Directive& directive : after.directives) {
        lines += directive.location ? 0U : 1U;
    }
    for (const Section& section : after.sections) {
        const Section* const old = before.find_section(section.name);
        const std::size_t old_atoms = old == nullptr ? 0 : old->atoms.size();
        lines += section.location ? 0U : 3U;  // a blank line, header and end
        lines += section.terminated ? 1U : 0U;
        lines += section.atoms.size() > old_atoms ? section.atoms.size() - old_atoms : 0;
        lines += static_cast<std::size_t>(
            std::count_if(section.entries.begin(), section.entries.end(),
                          [](const SectionEntry& entry) { return !entry.location.has_value(); }));
    }
    return lines;
}

// The editor's document with the words that a new geometry takes over from the header of the one in whose place it
// stands.
AIPData with_kept_words(AIPData data, const AIPData& before) {
    const auto is_new = [](const Section& section) { return section.name == "xyz" && !section.location; };
    const auto geometry = std::find_if(data.sections.begin(), data.sections.end(), is_new);
    const auto replaced = std::find_if(before.sections.begin(), before.sections.end(), [&](const Section& section) {
        const bool stays = std::any_of(data.sections.begin(), data.sections.end(),
                                       [&](const Section& other) { return other.location == section.location; });
        return !stays && (section.name == "xyz" || section.name == "zmat");
    });
    if (geometry != data.sections.end() && replaced != before.sections.end() && replaced->name == "xyz" &&
        geometry->charge && geometry->multiplicity && replaced->arguments.size() > 2) {
        geometry->arguments.insert(geometry->arguments.end(), replaced->arguments.begin() + 2,
                                   replaced->arguments.end());
    }
    return data;
}

bool has_errors(const OverlayResult& result) {
    return std::any_of(result.problems.begin(), result.problems.end(),
                       [](const ValidationIssue& problem) { return problem.severity == IssueSeverity::Error; });
}

std::string differing_document(const InPlaceOutcome& outcome) {
    const ParseOptions options{outcome.preserve_unknown, false};
    const AIPData read = AIPParser::parse_string(outcome.result.text, outcome.editor.schema(), options).data;
    const bool known_only = !outcome.preserve_unknown;
    const std::string is = described(read, known_only, outcome.new_geometry);
    const std::string wanted =
        described(with_kept_words(outcome.editor.data(), outcome.before), known_only, outcome.new_geometry);
    return is == wanted ? "" : "the result reads back as\n" + is + "instead of\n" + wanted;
}

}  // namespace

std::string broken_law(const InPlaceOutcome& outcome) {
    if (!has_errors(outcome.result)) {
        if (std::string difference = differing_document(outcome); !difference.empty()) {
            return difference;
        }
    }
    const AIPData& after = outcome.editor.data();
    const std::vector<bool> untouched = untouched_lines(outcome.text, outcome.before, after);
    if (const std::string lost = first_lost_line(outcome.text, untouched, outcome.result.text); !lost.empty()) {
        return "lost " + lost;
    }
    const std::size_t most = untouched.size() + room_for_new_records(outcome.before, after);
    const std::size_t lines = whole_lines(outcome.result.text).size();
    return lines <= most ? "" : std::to_string(lines) + " lines, at most " + std::to_string(most) + " expected";
}

}  // namespace velk::test
