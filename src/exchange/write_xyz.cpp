// Writing of XYZ text.
#include <velk/input/amesp/xyz.hpp>

#include "model/exact_coordinate.hpp"

namespace velk::input::amesp {

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
        text += atom.symbol;
        for (const double value : {atom.x, atom.y, atom.z}) {
            text += ' ';
            append_exact_coordinate(text, value);
        }
        text += '\n';
    }
    return text;
}

std::string coordinate_text(double value) {
    std::string text;
    append_exact_coordinate(text, value);
    return text;
}

}  // namespace velk::input::amesp
