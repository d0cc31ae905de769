// The lines of Cartesian sections.
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>

#include <velk/core/text_view.hpp>

#include "model/exact_coordinate.hpp"
#include "overlay/align.hpp"
#include "overlay/moved.hpp"
#include "overlay/overlay.hpp"
#include "overlay/partners.hpp"
#include "overlay/words.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp::overlay {
namespace {

using core::text::is_space;

std::array<double, 3> coordinates(const AtomRecord& atom) {
    return {atom.x, atom.y, atom.z};
}

bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool same_atom(const AtomRecord& a, const AtomRecord& b) {
    return a.symbol == b.symbol && same_bits(a.x, b.x) && same_bits(a.y, b.y) && same_bits(a.z, b.z);
}

// Equal exactly for the same atom.
std::string key_of(const AtomRecord& atom) {
    std::string key;
    for (const double value : coordinates(atom)) {
        const auto bytes = std::bit_cast<std::array<char, sizeof(double)>>(value);
        key.append(bytes.begin(), bytes.end());
    }
    return key + atom.symbol;
}

// Empty when no text is read as the value.
std::string coordinate(double value) {
    std::string text;
    return append_exact_coordinate(text, value) ? text : std::string();
}

bool is_symbol(std::string_view symbol) {
    return !symbol.empty() && std::none_of(symbol.begin(), symbol.end(), is_space) &&
           classify(symbol) != LineKind::comment;
}

// The line with the words that differ replaced; empty when that cannot be written.
std::string changed_line(std::string_view line, const AtomRecord& before, const AtomRecord& after) {
    const std::vector<std::string_view> words = words_from(line, 0);
    std::vector<std::string> wanted(words.begin(), words.end());
    if (!is_symbol(after.symbol)) {
        return {};
    }
    wanted[0] = after.symbol;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (!same_bits(coordinates(before)[axis], coordinates(after)[axis])) {
            wanted[axis + 1] = coordinate(coordinates(after)[axis]);
            if (wanted[axis + 1].empty()) {
                return {};
            }
        }
    }
    return with_words(line, words, wanted);
}

class Atoms {
public:
    Atoms(Overlay& overlay, const SectionChange& change)
        : overlay_(overlay),
          change_(change),
          before_(change.before.atoms),
          after_(change.after.atoms),
          taken_(before_.size(), false) {}

    void lay() {
        if (std::equal(before_.begin(), before_.end(), after_.begin(), after_.end(), same_atom)) {
            return;
        }
        const auto old_key = [this](std::size_t i) { return key_of(before_[i]); };
        const auto new_key = [this](std::size_t i) { return key_of(after_[i]); };
        const auto same = [this](std::size_t old, std::size_t i) { return same_atom(before_[old], after_[i]); };
        partners_ = Aligner(before_.size(), after_.size(), old_key, new_key, same).run();
        sources_ = moved_from(before_.size(), partners_, old_key, new_key, same);
        for (const std::size_t source : sources_) {
            if (source != no_partner) {
                taken_[source] = true;
            }
        }
        const std::vector<bool> removed = without_partner(before_.size(), partners_);
        for (std::size_t i = 0; i < removed.size(); ++i) {
            if (removed[i]) {
                overlay_.patch.drop(line_of(before_[i]));
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
        overlay_.problems.cannot_write("Atom " + std::to_string(number) + " of section '>" + change_.after.name + "'",
                                       atom.location);
    }

    // Where atoms go that stand before all that stay.
    std::size_t first_slot() const {
        if (!before_.empty()) {
            return line_of(before_.front());
        }
        for (std::size_t line = change_.extent.header + 1; line < change_.extent.stop; ++line) {
            if (overlay_.patch.drops(line)) {
                return line;
            }
        }
        return change_.extent.stop;
    }

    std::string_view indent() const {
        if (before_.empty()) {
            return "  ";
        }
        const std::string_view line = old_line(neighbour_);
        return line.substr(0, offset_in(line, core::text::trim_view(line)));
    }

    std::string_view old_line(std::size_t old) const { return overlay_.lines.raw(line_of(before_[old])); }

    // An atom that only stands elsewhere takes its line along.
    std::string new_line(std::size_t i) const {
        return sources_[i] == no_partner ? atom_line(after_[i], indent()) : std::string(old_line(sources_[i]));
    }

    void add(std::size_t i) {
        std::string line = new_line(i);
        if (line.empty()) {
            return cannot_write(after_[i]);
        }
        overlay_.patch.insert(slot_, InsertOrder::body, std::move(line));
    }

    void change(std::size_t i) {
        const std::size_t old = partners_[i];
        if (same_atom(before_[old], after_[i])) {
            return;
        }
        const bool anew = sources_[i] != no_partner || taken_[old];
        std::string line = anew ? new_line(i) : changed_line(old_line(old), before_[old], after_[i]);
        if (line.empty()) {
            return cannot_write(after_[i]);
        }
        overlay_.patch.replace(line_of(before_[old]), std::move(line));
    }

    Overlay& overlay_;
    const SectionChange& change_;
    const std::vector<AtomRecord>& before_;
    const std::vector<AtomRecord>& after_;
    std::vector<std::size_t> partners_;
    std::vector<std::size_t> sources_;  // for every new atom the old one whose line moves to it
    std::vector<bool> taken_;           // the old atoms whose lines move
    std::size_t slot_ = 0;
    std::size_t neighbour_ = 0;  // the old atom whose indentation a new one takes
};

}  // namespace

std::string atom_line(const AtomRecord& atom, std::string_view indent) {
    if (!is_symbol(atom.symbol)) {
        return {};
    }
    std::string line(indent);
    line += atom.symbol;
    for (const double value : coordinates(atom)) {
        const std::string text = coordinate(value);
        if (text.empty()) {
            return {};
        }
        line += ' ';
        line += text;
    }
    return line;
}

void lay_atoms(Overlay& overlay, const SectionChange& change) {
    if (change.mode != SectionParseMode::cartesian_coordinates && !change.after.atoms.empty()) {
        return overlay.problems.cannot_write("The atoms of section '>" + change.after.name + "'",
                                             change.after.location);
    }
    Atoms(overlay, change).lay();
}

}  // namespace velk::input::amesp::overlay
