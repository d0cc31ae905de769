// '>' lines.
#include <algorithm>
#include <string>
#include <vector>

#include "in_place/atom_lines.hpp"
#include "in_place/read_back.hpp"
#include "in_place/revision.hpp"
#include "in_place/units.hpp"
#include "in_place/words.hpp"
#include "model/geometry_names.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp::in_place {
namespace {

using Words = std::vector<std::string>;

// A word that reads as the number stays: "+1".
void put_number(std::string& word, std::int32_t number) {
    if (read_int32(word) != number) {
        word.clear();
        append_integer(word, number);
    }
}

// Charge and multiplicity speak for the first two arguments, as in rendering.
Words with_numbers(const Section& section, Words arguments) {
    arguments.resize(std::max<std::size_t>(arguments.size(), 2));
    put_number(arguments[0], *section.charge);
    put_number(arguments[1], *section.multiplicity);
    return arguments;
}

bool has_numbers(const InputSchema& schema, const Section& section) {
    return section.charge && section.multiplicity && schema.canonical_section(section.name) == xyz_section;
}

// What a new geometry takes over from the header of the old one: the words after charge and multiplicity, when both had
// them in the same place.
Words kept_words(const Revision& revision, const Section& before) {
    const bool has_place = revision.schema.canonical_section(before.name) == xyz_section;
    return revision.drop_header_words || !has_place ? Words() : before.arguments;
}

bool same_atoms(const Section& a, const Section& b) {
    return std::equal(a.atoms.begin(), a.atoms.end(), b.atoms.begin(), b.atoms.end(), same_atom);
}

// The header has room for charge, multiplicity and the words that stay; other words of the old one go.
void say_what_becomes_of_words(Revision& revision, const SectionChange& change, const Words& wanted) {
    constexpr std::size_t numbers = 2;
    std::string gone;
    for (std::size_t i = 0; i < change.before.arguments.size(); ++i) {
        const std::string& word = change.before.arguments[i];
        const bool stays = i < numbers ? read_int32(word).has_value() : i < wanted.size();
        gone += stays ? "" : (gone.empty() ? "" : " ") + word;
    }
    if (!gone.empty()) {
        revision.problems.dropped_words(
            "The words '" + gone + "' of the header of section '>" + change.before.name + "' go",
            change.before.location);
    }
    for (std::size_t i = numbers; i < wanted.size(); ++i) {
        if (names_other_unit(wanted[i]) && !same_atoms(change.before, change.after)) {
            revision.problems.kept_unit(change.before, wanted[i]);
        }
    }
}

// Of a section that stays, what was changed speaks: charge and multiplicity, or the arguments.
Words wanted_arguments(const Revision& revision, const SectionChange& change) {
    const InputSchema& schema = revision.schema;
    const Section& after = change.after;
    const bool numbers_changed =
        after.charge != change.before.charge || after.multiplicity != change.before.multiplicity;
    if (!has_numbers(schema, after) || (!change.replaced && !numbers_changed)) {
        return after.arguments;
    }
    return with_numbers(after, change.replaced ? kept_words(revision, change.before) : after.arguments);
}

bool reads_as(const InputSchema& schema, std::string_view header, std::string_view name, const Words& arguments) {
    const std::optional<Section> read = read_section(header, {}, schema);
    return read && read->arguments == arguments &&
           schema.canonical_section(read->name) == schema.canonical_section(name);
}

}  // namespace

std::string header_line(const Revision& revision, const Section& section) {
    const InputSchema& schema = revision.schema;
    const Words arguments = has_numbers(schema, section) ? with_numbers(section, {}) : section.arguments;
    std::string line = '>' + schema.canonical_section(section.name);
    for (const std::string& argument : arguments) {
        line += ' ' + argument;
    }
    return reads_as(schema, line, section.name, arguments) ? line : std::string();
}

std::string edit_header(Revision& revision, const SectionChange& change) {
    const InputSchema& schema = revision.schema;
    const std::string_view line = revision.lines.raw(change.extent.header);
    Words wanted = wanted_arguments(revision, change);
    if (change.replaced) {
        say_what_becomes_of_words(revision, change, wanted);
    }
    if (change.before.name == change.after.name && change.before.arguments == wanted) {
        return std::string(line);
    }
    const std::vector<std::string_view> words = words_from(line, line.find('>') + 1);
    const Words arguments = wanted;
    wanted.insert(wanted.begin(), std::string());
    for (const std::string& name : {std::string(words.front()), schema.canonical_section(change.after.name)}) {
        wanted.front() = name;
        std::string text = with_words(line, words, wanted);
        if (reads_as(schema, text, change.after.name, arguments)) {
            revision.patch.replace(change.extent.header, text);
            return text;
        }
    }
    revision.problems.cannot_write("The header of section '>" + change.after.name + "'", change.after.location);
    return std::string(line);
}

}  // namespace velk::input::amesp::in_place
