// The lines of Cartesian sections.
#include <algorithm>
#include <array>
#include <bit>
#include <string>

#include <velk/core/text_view.hpp>

#include "in_place/align.hpp"
#include "in_place/atom_lines.hpp"
#include "in_place/moved.hpp"
#include "in_place/partners.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"

namespace velk::input::amesp::in_place {
namespace {

// Equal exactly for the same atom.
std::string key_of(const AtomRecord& atom) {
    std::string key;
    for (const double value : coordinates(atom)) {
        const auto bytes = std::bit_cast<std::array<char, sizeof(double)>>(value);
        key.append(bytes.begin(), bytes.end());
    }
    return key + atom.symbol;
}

class Atoms {
public:
    Atoms(Revision& revision, const SectionChange& change)
        : revision_(revision),
          change_(change),
          before_(change.before.atoms),
          after_(change.after.atoms),
          taken_(before_.size(), false) {}

    void run() {
        if (std::equal(before_.begin(), before_.end(), after_.begin(), after_.end(), same_atom)) {
            return;
        }
        const auto old_key = [this](std::size_t i) { return key_of(before_[i]); };
        const auto new_key = [this](std::size_t i) { return key_of(after_[i]); };
        const auto same = [this](std::size_t old, std::size_t i) { return same_atom(before_[old], after_[i]); };
        partners_ = Aligner(before_.size(), after_.size(), old_key, new_key, same).run();
        if (!change_.replaced && !come_from_this_text()) {
            return revision_.problems.not_of_this_text("The list of atoms of section '>" + change_.after.name + "'",
                                                       change_.after.location);
        }
        sources_ = moved_from(before_.size(), partners_, old_key, new_key, same);
        for (const std::size_t source : sources_) {
            if (source != no_partner) {
                taken_[source] = true;
            }
        }
        const std::vector<bool> removed = without_partner(before_.size(), partners_);
        for (std::size_t i = 0; i < removed.size(); ++i) {
            if (removed[i]) {
                revision_.patch.drop(line_of(before_[i]));
                say_lost_words(i);
            }
        }
        slot_ = first_slot();
        for (std::size_t i = 0; i < after_.size(); ++i) {
            if (partners_[i] == no_partner) {
                add(i);
            } else {
                neighbour_ = partners_[i];
                slot_ = line_of(before_[neighbour_]) + 1;
                change(i);
            }
        }
    }

private:
    void cannot_write(const AtomRecord& atom) {
        const std::size_t number = static_cast<std::size_t>(&atom - after_.data()) + 1;
        revision_.problems.cannot_write("Atom " + std::to_string(number) + " of section '>" + change_.after.name + "'",
                                        atom.location);
    }

    // Edits leave an atom the line that it was read from.
    bool come_from_this_text() const {
        for (std::size_t i = 0; i < after_.size(); ++i) {
            const std::size_t old = partners_[i];
            const bool stays = old != no_partner && same_atom(before_[old], after_[i]);
            if (!stays && after_[i].location && !holds_line_of(after_[i])) {
                return false;
            }
        }
        return true;
    }

    bool holds_line_of(const AtomRecord& atom) const {
        return line_of(atom) < revision_.lines.size() && revision_.lines.raw(line_of(atom)) == atom.raw_line;
    }

    // Where atoms go that stand before all that stay.
    std::size_t first_slot() const {
        if (!before_.empty()) {
            return line_of(before_.front());
        }
        for (std::size_t line = change_.extent.header + 1; line < change_.extent.stop; ++line) {
            if (revision_.patch.drops(line)) {
                return line;
            }
        }
        return change_.extent.stop;
    }

    std::string_view indent() const {
        constexpr std::string_view usual = "  ";
        if (before_.empty()) {
            return usual;
        }
        const std::string_view line = old_line(neighbour_);
        const std::size_t width = offset_in(line, core::text::trim_view(line));
        return width > widest_layout ? usual : line.substr(0, width);
    }

    std::string_view old_line(std::size_t old) const { return revision_.lines.raw(line_of(before_[old])); }

    // An atom that only stands elsewhere takes its line along.
    std::string new_line(std::size_t i) {
        return sources_[i] == no_partner ? atom_line(after_[i], indent(), style()) : std::string(old_line(sources_[i]));
    }

    const AtomStyle& style() {
        if (!style_) {
            style_ = atom_style(revision_.lines, before_);
        }
        return *style_;
    }

    void add(std::size_t i) {
        std::string line = new_line(i);
        if (line.empty()) {
            return cannot_write(after_[i]);
        }
        revision_.patch.insert(slot_, InsertOrder::body, std::move(line));
    }

    // Of a line that does not stay; one that another atom took along keeps its words.
    void say_lost_words(std::size_t old) {
        const std::string_view words = words_after_coordinates(old_line(old));
        if (!words.empty() && !taken_[old]) {
            revision_.problems.dropped_words(
                "The words '" + std::string(words) + "' after an atom of section '>" + change_.before.name + "' go",
                before_[old].location);
        }
    }

    void change(std::size_t i) {
        const std::size_t old = partners_[i];
        if (same_atom(before_[old], after_[i])) {
            return;
        }
        const bool anew = sources_[i] != no_partner || taken_[old];
        std::string line = anew ? new_line(i) : changed_atom_line(old_line(old), before_[old], after_[i], style());
        if (line.empty()) {
            return cannot_write(after_[i]);
        }
        revision_.patch.replace(line_of(before_[old]), std::move(line));
        if (anew || before_[old].symbol != after_[i].symbol) {
            say_lost_words(old);
        }
    }

    Revision& revision_;
    const SectionChange& change_;
    const std::vector<AtomRecord>& before_;
    const std::vector<AtomRecord>& after_;
    std::vector<std::size_t> partners_;
    std::vector<std::size_t> sources_;  // for every new atom the old one whose line moves to it
    std::vector<bool> taken_;           // the old atoms whose lines move
    std::optional<AtomStyle> style_;    // made when it is needed
    std::size_t slot_ = 0;
    std::size_t neighbour_ = 0;  // the old atom whose indentation a new one takes
};

}  // namespace

void edit_atoms(Revision& revision, const SectionChange& change) {
    if (change.mode != SectionParseMode::cartesian_coordinates && !change.after.atoms.empty()) {
        return revision.problems.cannot_write("The atoms of section '>" + change.after.name + "'",
                                              change.after.location);
    }
    Atoms(revision, change).run();
}

}  // namespace velk::input::amesp::in_place
