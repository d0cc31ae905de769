// Geometries from XYZ files.
#include "geometry.hpp"

#include <stdexcept>

#include "inputs.hpp"
#include "numbers.hpp"
#include "output.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

std::string at(const std::string& name, const XyzMessage& message, const char* kind) {
    return name + ":" + std::to_string(message.line) + ":" + std::to_string(message.column) + ": " + kind + ": " +
           message.message;
}

// With a molecule.
XyzResult read_xyz_file(const Input& input, std::uint64_t frame) {
    XyzResult result = read_xyz(read_input(input), {frame});
    if (!result.molecule) {
        throw std::runtime_error(at(input.name, *result.error, "error") +
                                 (result.frames_to_choose_from > 0 ? " (--frame N or --frame last chooses one)" : ""));
    }
    return result;
}

// Charge and multiplicity of a comment line come together; an option then overrides its own.
void say_what_is_taken(const Molecule& molecule, const std::string& name, const GeometryOptions& options) {
    if (!molecule.charge || (options.charge && options.multiplicity)) {
        return;
    }
    const std::string charge = "charge " + std::to_string(*molecule.charge);
    const std::string multiplicity = "multiplicity " + std::to_string(*molecule.multiplicity);
    const std::string from = " taken from the comment line of '" + name + "'";
    if (options.charge) {
        complain(multiplicity + " is" + from + ", but not " + charge + ": --charge is given");
    } else if (options.multiplicity) {
        complain(charge + " is" + from + ", but not " + multiplicity + ": --multiplicity is given");
    } else {
        complain(charge + " and " + multiplicity + " are" + from);
    }
}

}  // namespace

std::optional<std::uint64_t> frame_of(std::string_view text) {
    if (text == "last") {
        return XyzOptions::last_frame;
    }
    const auto number = read_number<std::uint64_t>(text);
    return number && *number > 0 ? number : std::nullopt;
}

Geometry read_geometry(const std::string& xyz_path, const GeometryOptions& options, bool quiet) {
    const Input input{xyz_path, xyz_path == "-" ? "<stdin>" : xyz_path};
    XyzResult read = read_xyz_file(input, options.frame);
    Molecule& molecule = *read.molecule;
    if (!quiet) {
        for (const XyzMessage& note : read.notes) {
            complain(at(input.name, note, "note"));
        }
        say_what_is_taken(molecule, input.name, options);
    }
    return {input.name, std::move(molecule.atoms), options.charge ? options.charge : molecule.charge,
            options.multiplicity ? options.multiplicity : molecule.multiplicity};
}

void set_geometry(AIPEditor& editor, const Geometry& geometry) {
    const Section* const old = editor.data().find_section("xyz");
    const auto known = [old](const std::optional<std::int32_t>& number, std::optional<std::int32_t> Section::*of_old) {
        return number || old == nullptr ? number : old->*of_old;
    };
    const std::optional<std::int32_t> charge = known(geometry.charge, &Section::charge);
    const std::optional<std::int32_t> multiplicity = known(geometry.multiplicity, &Section::multiplicity);
    if (!charge || !multiplicity) {
        throw std::runtime_error("the charge and the multiplicity of '" + geometry.name +
                                 "' are not known: give --charge and --multiplicity");
    }
    editor.set_xyz_geometry(*charge, *multiplicity, geometry.atoms);
}

}  // namespace amesp_inp
