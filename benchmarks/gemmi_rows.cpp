// Coordinates against gemmi, which reads them from a loop of a CIF file.
#include <array>
#include <charconv>
#include <gemmi/cif.hpp>
#include <gemmi/numb.hpp>
#include <velk/input/amesp/parser.hpp>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::string cif_text(const std::vector<AtomRecord>& atoms) {
    std::string text = "data_x\nloop_\n_atom_site_label\n_atom_site_Cartn_x\n_atom_site_Cartn_y\n_atom_site_Cartn_z\n";
    for (const AtomRecord& atom : atoms) {
        text += atom.symbol + ' ' + coordinate_text(atom.x) + ' ' + coordinate_text(atom.y) + ' ' +
                coordinate_text(atom.z) + '\n';
    }
    return text;
}

std::vector<Site> read(const std::string& text) {
    namespace cif = gemmi::cif;
    cif::Document document = cif::read_memory(text.data(), text.size(), "coordinates");
    const cif::Loop& loop = *document.blocks[0].find_loop("_atom_site_label").get_loop();
    std::vector<Site> sites;
    sites.reserve(loop.length());
    for (std::size_t row = 0; row < loop.length(); ++row) {
        sites.push_back({loop.val(row, 0), cif::as_number(loop.val(row, 1)), cif::as_number(loop.val(row, 2)),
                         cif::as_number(loop.val(row, 3))});
    }
    return sites;
}

void add_rows() {
    add_pair("parse 1e4 atoms / gemmi, a CIF loop", coordinates_target, [] {
        const std::string text = cif_text(atoms());
        require(is_same(read(text), atoms()), "gemmi reads other coordinates");
        return Contest([] { return parse_coordinates(); }, [text] { return read(text); });
    });
}

const RowGroup group(Place::coordinates, add_rows);

}  // namespace
}  // namespace velk::bench
