// The lines of key-value sections.
#include <algorithm>
#include <array>
#include <string>

#include <velk/core/text_view.hpp>

#include "in_place/partners.hpp"
#include "in_place/read_back.hpp"
#include "in_place/remarks.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"
#include "model/key.hpp"

namespace velk::input::amesp::in_place {
namespace {

using core::text::is_space;
using core::text::take_word;
using core::text::trim_view;

// Views into one entry line.
struct Parts {
    std::string_view indent;
    std::string_view key;
    std::string_view separator;  // up to the value; without a value, up to where it would stand
    std::string_view value;
};

Parts parts_of(std::string_view line) {
    const std::string_view text = trim_view(line);
    const std::size_t equals = text.find('=');
    std::string_view rest = text;
    Parts parts;
    parts.indent = line.substr(0, offset_in(line, text));
    parts.key = equals == std::string_view::npos ? take_word(rest) : trim_view(text.substr(0, equals));
    rest = equals == std::string_view::npos ? value_behind(rest) : text.substr(equals + 1);
    parts.value = trim_view(rest);
    const std::size_t key_end = offset_in(line, parts.key) + parts.key.size();
    const std::size_t stop = offset_in(line, parts.value.empty() ? rest : parts.value);
    parts.separator = line.substr(key_end, stop - key_end);
    return parts;
}

std::string with_value(std::string_view line, std::string_view value) {
    const Parts parts = parts_of(line);
    const std::size_t equals = parts.separator.find('=');
    if (equals == std::string_view::npos) {
        return with_value_behind(line, parts.key, value);
    }
    const std::size_t begin = offset_in(line, parts.key) + parts.key.size() + equals + 1;
    const std::size_t end = parts.value.empty() ? begin : offset_in(line, parts.value) + parts.value.size();
    if (!value.empty() && !parts.value.empty()) {
        return with_part(line, parts.value, value);
    }
    return with_part(line, line.substr(begin, end - begin), value.empty() ? std::string() : ' ' + std::string(value));
}

// "key = value", which also holds values with a '=' and keys that mean something else on their own.
std::string with_equals(std::string_view indent, std::string_view key, std::string_view value) {
    std::string line(indent);
    line += key;
    line += " =";
    if (!value.empty()) {
        line += ' ';
        line += value;
    }
    return line;
}

bool reads_as(const Revision& revision, std::string_view opening, std::string_view line, const SectionEntry& wanted) {
    const std::optional<Section> section = read_section(opening, line, revision.schema);
    if (!section || section->entries.size() != 1 || !section->raw_lines.empty()) {
        return false;
    }
    const auto canonical = [&](const std::string& key) { return revision.schema.canonical_entry(section->name, key); };
    const SectionEntry& read = section->entries.front();
    return read.value == trim_view(wanted.value) &&
           (read.key == wanted.key || canonical(read.key) == canonical(wanted.key));
}

bool has_blank(std::string_view key) {
    return std::any_of(key.begin(), key.end(), is_space);
}

// How the key may be written, in the order to be tried: the canonical name, then as given. A key with a blank comes
// last: it would be another entry to everyone who does not look for the '='.
auto spellings(const Revision& revision, std::string_view section, std::string_view key) {
    std::array keys{revision.schema.canonical_entry(section, key), std::string(trim_view(key))};
    if (has_blank(keys.front())) {
        std::swap(keys.front(), keys.back());
    }
    return keys;
}

std::string name_of(const SectionChange& change, const SectionEntry& entry) {
    return "Entry '" + entry.key + "' of section '>" + change.after.name + "'";
}

void change_line(Revision& revision, const SectionChange& change, const SectionEntry& before,
                 const SectionEntry& after) {
    const std::string_view line = revision.lines.raw(line_of(before));
    const Parts parts = parts_of(line);
    const std::string_view value = trim_view(after.value);
    const auto replaced_by = [&](std::string text) {
        if (!reads_as(revision, change.opening, text, after)) {
            return false;
        }
        revision.patch.replace(line_of(before), std::move(text));
        say_lost_remark(revision, before, after.value);
        return true;
    };
    if (replaced_by(with_value(line, value)) || replaced_by(with_equals(parts.indent, parts.key, value))) {
        return;
    }
    for (const std::string& key : spellings(revision, change.after.name, after.key)) {
        if (replaced_by(with_value(with_part(line, parts.key, key), value)) ||
            replaced_by(with_equals(parts.indent, key, value))) {
            return;
        }
    }
    revision.problems.cannot_write(name_of(change, after), after.location);
}

LineStyle style_of(const Revision& revision, const std::vector<SectionEntry>& entries) {
    std::vector<NamedLine> lines;
    for (const SectionEntry& entry : entries) {
        const Parts parts = parts_of(revision.lines.raw(line_of(entry)));
        lines.push_back({parts.indent, parts.key, parts.separator, !parts.value.empty()});
    }
    return style_of(std::move(lines), usual_entry_style);
}

// With that spelling of the key; empty when it does not read back as the entry.
std::string line_with_key(const Revision& revision, std::string_view opening, const SectionEntry& entry,
                          const LineStyle& style, std::string_view key) {
    const std::string_view value = trim_view(entry.value);
    if (has_blank(key)) {
        return {};
    }
    std::string line = line_in_style(style, key, value);
    if (reads_as(revision, opening, line, entry)) {
        return line;
    }
    line = with_equals(style.indent, key, value);
    return reads_as(revision, opening, line, entry) ? line : std::string();
}

}  // namespace

std::string entry_line(const Revision& revision, std::string_view opening, const Section& section,
                       const SectionEntry& entry, const LineStyle& style) {
    for (const std::string& key : spellings(revision, section.name, entry.key)) {
        if (std::string line = line_with_key(revision, opening, entry, style, key); !line.empty()) {
            return line;
        }
    }
    return {};
}

namespace {

// Edits leave a record the line that it was read from.
bool come_from(const std::vector<SectionEntry>& before, const std::vector<SectionEntry>& after,
               const std::vector<std::size_t>& partner) {
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (partner[i] != no_partner && before[partner[i]].raw_line != after[i].raw_line) {
            return false;
        }
    }
    return true;
}

}  // namespace

void edit_entries(Revision& revision, const SectionChange& change) {
    const std::vector<SectionEntry> none;
    const std::vector<SectionEntry>& before = change.replaced ? none : change.before.entries;
    const std::vector<SectionEntry>& after = change.after.entries;
    const auto partner = partners(before, after);
    if (!partner || !come_from(before, after, *partner)) {
        return revision.problems.not_of_this_text("The list of entries of section '>" + change.after.name + "'",
                                                  change.after.location);
    }
    const std::vector<bool> removed = without_partner(before.size(), *partner);
    for (std::size_t i = 0; i < removed.size(); ++i) {
        if (removed[i]) {
            revision.patch.drop(line_of(before[i]));
            say_lost_remark(revision, before[i], {});
        }
    }
    std::optional<LineStyle> style;
    NextPartner next_partner(*partner);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if ((*partner)[i] != no_partner) {
            const SectionEntry& old = before[(*partner)[i]];
            if (old.key != after[i].key || old.value != after[i].value) {
                change_line(revision, change, old, after[i]);
            }
            continue;
        }
        if (!style) {
            style = style_of(revision, before);
        }
        std::string line = entry_line(revision, change.opening, change.after, after[i], *style);
        if (line.empty()) {
            revision.problems.cannot_write(name_of(change, after[i]), after[i].location);
            continue;
        }
        const std::size_t next = next_partner.from(i);
        const std::size_t slot = next != no_partner ? line_of(before[next])
                                 : before.empty()   ? change.extent.stop
                                                    : line_of(before.back()) + 1;
        revision.patch.insert(slot, InsertOrder::body, std::move(line));
    }
}

}  // namespace velk::input::amesp::in_place
