// Coordinates against Open Babel, which reads them from an XYZ file.
#include <openbabel/atom.h>
#include <openbabel/mol.h>
#include <openbabel/obconversion.h>
#include <openbabel/obiter.h>
#include <memory>
#include <velk/input/amesp/parser.hpp>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::string xyz_text(const std::vector<AtomRecord>& atoms) {
    std::string text = std::to_string(atoms.size()) + "\n\n";
    for (const AtomRecord& atom : atoms) {
        text += atom.raw_line + '\n';
    }
    return text;
}

// Without its search for bonds, which this library does not do.
std::unique_ptr<OpenBabel::OBMol> read(const std::string& text) {
    OpenBabel::OBConversion conversion;
    conversion.SetInFormat("xyz");
    conversion.AddOption("b", OpenBabel::OBConversion::INOPTIONS);
    auto molecule = std::make_unique<OpenBabel::OBMol>();
    conversion.ReadString(molecule.get(), text);
    return molecule;
}

bool has_atoms(OpenBabel::OBMol& molecule, const std::vector<AtomRecord>& atoms) {
    std::size_t next = 0;
    FOR_ATOMS_OF_MOL(atom, molecule) {
        if (next == atoms.size() || !is_near(atom->GetX(), atoms[next].x) || !is_near(atom->GetZ(), atoms[next].z)) {
            return false;
        }
        ++next;
    }
    return next == atoms.size();
}

void add_rows() {
    add_pair("parse 1e4 atoms / Open Babel, XYZ", coordinates_target, [] {
        const std::string text = xyz_text(atoms());
        require(has_atoms(*read(text), atoms()), "Open Babel reads other coordinates");
        return Contest([] { return parse_coordinates(); }, [text] { return read(text); });
    });
}

const RowGroup group(Place::coordinates, add_rows);

}  // namespace
}  // namespace velk::bench
