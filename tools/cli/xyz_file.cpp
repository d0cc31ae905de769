// Reading and writing of XYZ files.
#include "xyz_file.hpp"

#include <velk/core/text_view.hpp>

#include "numbers.hpp"
#include "source_lines.hpp"

namespace amesp_inp {
namespace {

using velk::core::text::take_word;
using velk::core::text::trim_view;
using velk::input::amesp::AtomRecord;

class XyzReader {
public:
    XyzReader(std::string_view text, const std::string& name) : lines_(text), name_(name) {}

    Molecule run() {
        const std::uint64_t count = read_count();
        Molecule molecule;
        read_comment(molecule);
        for (std::uint64_t i = 0; i < count; ++i) {
            if (first_atom_line + i > lines_.count()) {
                fail(lines_.count(), 1,
                     "the file ends after " + std::to_string(i) + " of " + std::to_string(count) + " atoms");
            }
            molecule.atoms.push_back(read_atom(first_atom_line + i));
        }
        for (std::uint64_t number = first_atom_line + count; number <= lines_.count(); ++number) {
            if (!trim_view(lines_.line(number)).empty()) {
                fail(number, lines_.text_of(number).column,
                     "expected the end of the file after " + std::to_string(count) + " atoms");
            }
        }
        return molecule;
    }

private:
    static constexpr std::uint64_t first_atom_line = 3;

    [[noreturn]] void fail(std::uint64_t line, std::uint64_t column, const std::string& message) const {
        throw XyzError(name_ + ":" + std::to_string(std::max<std::uint64_t>(1, line)) + ":" + std::to_string(column) +
                       ": error: " + message);
    }

    std::uint64_t column_of(std::uint64_t line, std::string_view word) const {
        return word.empty() ? lines_.line(line).size() + 1
                            : static_cast<std::uint64_t>(word.data() - lines_.line(line).data()) + 1;
    }

    std::uint64_t read_count() const {
        const auto count = read_number<std::uint64_t>(trim_view(lines_.line(1)));
        if (!count) {
            fail(1, lines_.text_of(1).column, "expected the number of atoms");
        }
        return *count;
    }

    void read_comment(Molecule& molecule) const {
        std::string_view rest = lines_.line(2);
        for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
            const std::size_t equals = word.find('=');
            const std::string_view key = word.substr(0, equals);
            if (equals == std::string_view::npos || (key != "charge" && key != "multiplicity")) {
                continue;
            }
            const auto value = read_number<std::int32_t>(word.substr(equals + 1));
            if (!value) {
                fail(2, column_of(2, word), "expected an integer after '" + std::string(key) + "='");
            }
            (key == "charge" ? molecule.charge : molecule.multiplicity) = value;
        }
    }

    AtomRecord read_atom(std::uint64_t line) const {
        std::string_view rest = lines_.line(line);
        AtomRecord atom;
        atom.symbol = take_word(rest);
        if (atom.symbol.empty()) {
            fail(line, 1, "expected an atom: symbol, x, y, z");
        }
        for (double* const coordinate : {&atom.x, &atom.y, &atom.z}) {
            const std::string_view word = take_word(rest);
            const std::optional<double> value = read_coordinate(word);
            if (!value) {
                fail(line, column_of(line, word), "expected a coordinate");
            }
            *coordinate = *value;
        }
        return atom;
    }

    const SourceLines lines_;
    const std::string& name_;
};

}  // namespace

Molecule read_xyz(std::string_view text, const std::string& name) {
    return XyzReader(text, name).run();
}

std::string write_xyz(const Molecule& molecule) {
    std::string text = std::to_string(molecule.atoms.size()) + "\n";
    if (molecule.charge) {
        text += "charge=" + std::to_string(*molecule.charge);
    }
    if (molecule.multiplicity) {
        text += (molecule.charge ? " multiplicity=" : "multiplicity=") + std::to_string(*molecule.multiplicity);
    }
    text += '\n';
    for (const AtomRecord& atom : molecule.atoms) {
        text += atom.symbol + " " + coordinate_text(atom.x) + " " + coordinate_text(atom.y) + " " +
                coordinate_text(atom.z) + "\n";
    }
    return text;
}

}  // namespace amesp_inp
