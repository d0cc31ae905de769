// The replacement of the molecular geometry.
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "model/geometry_names.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

std::string integer_text(std::int32_t value) {
    std::string text;
    append_integer(text, value);
    return text;
}

}  // namespace

void AIPEditor::set_xyz_geometry(std::int32_t charge, std::int32_t multiplicity, std::vector<AtomRecord> atoms) {
    Section section = make_section(std::string(xyz_section), {integer_text(charge), integer_text(multiplicity)});
    section.charge = charge;
    section.multiplicity = multiplicity;
    section.atoms = std::move(atoms);
    remove_matching(data_.sections, [&](const Section& candidate) {
        return is_geometry_section(schema_.canonical_section(candidate.name));
    });
    data_.sections.push_back(std::move(section));
}

}  // namespace velk::input::amesp
