// '>' lines.
#include <string>
#include <vector>

#include "model/geometry_names.hpp"
#include "model/numbers.hpp"
#include "overlay/overlay.hpp"
#include "overlay/read_back.hpp"
#include "overlay/words.hpp"

namespace velk::input::amesp::overlay {
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

// Of a section that stays, what was changed speaks: charge and multiplicity, or the arguments.
Words wanted_arguments(const InputSchema& schema, const SectionChange& change) {
    const Section& after = change.after;
    const bool numbers_changed =
        after.charge != change.before.charge || after.multiplicity != change.before.multiplicity;
    if (!has_numbers(schema, after) || (!change.replaced && !numbers_changed)) {
        return after.arguments;
    }
    return with_numbers(after, change.replaced ? Words() : after.arguments);
}

bool reads_as(const InputSchema& schema, std::string_view header, std::string_view name, const Words& arguments) {
    const std::optional<Section> read = read_section(header, {}, schema);
    return read && read->arguments == arguments &&
           schema.canonical_section(read->name) == schema.canonical_section(name);
}

}  // namespace

std::string header_line(const Overlay& overlay, const Section& section) {
    const InputSchema& schema = overlay.schema;
    const Words arguments = has_numbers(schema, section) ? with_numbers(section, {}) : section.arguments;
    std::string line = '>' + schema.canonical_section(section.name);
    for (const std::string& argument : arguments) {
        line += ' ' + argument;
    }
    return reads_as(schema, line, section.name, arguments) ? line : std::string();
}

std::string lay_header(Overlay& overlay, const SectionChange& change) {
    const InputSchema& schema = overlay.schema;
    const std::string_view line = overlay.lines.raw(change.extent.header);
    Words wanted = wanted_arguments(schema, change);
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
            overlay.patch.replace(change.extent.header, text);
            return text;
        }
    }
    overlay.problems.cannot_write("The header of section '>" + change.after.name + "'", change.after.location);
    return std::string(line);
}

}  // namespace velk::input::amesp::overlay
