// Edits as the command line spells them, for the subcommands that change or make an input.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>
#include <velk/input/amesp/editor.hpp>

#include "edit_output.hpp"
#include "geometry.hpp"

namespace amesp_inp {

enum class EditKind {
    set_directive,
    unset_directive,
    set_method,
    add_token,
    remove_token,
    set_entry,
    unset_entry,
    remove_section,
    set_geometry,
};

// How the command line spells an edit.
struct EditName {
    EditKind kind;
    const char* option;
    const char* argument;
    const char* help;
};
const EditName& name_of(EditKind kind);

struct Edit {
    EditKind kind;
    std::string argument;
};

// The edits of one command line.
struct Edits {
    std::vector<Edit> in_order;
    GeometryOptions geometry;
};

// The XYZ files that edits name, each read once, however many inputs are edited. Throws as `read_geometry` does.
using Geometries = std::map<std::string, Geometry>;
Geometries read_geometries(const Edits& edits, bool quiet);

// Says why a document cannot take an edit that is itself in order.
class EditRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Without a new geometry, charge and multiplicity of the options are for the one that is there. Throws EditRefused, and
// other std::runtime_error for an argument of the wrong form and as `set_geometry` does.
void apply(velk::input::amesp::AIPEditor& editor, const Edits& edits, const Geometries& geometries);

// Whether an edit asks for what no canonical text says: that makes no sense even when forced.
bool cannot_be_forced(const std::vector<velk::input::amesp::Diagnostic>& findings);

// Delivers the edited document, written into the text that it was read from or in canonical form, unless that text
// cannot say what the document holds or has errors that the text before did not have; those, and warnings likewise, are
// reported.
EditOutcome finish_edit(const EditOutput& output, EditReport& report, const Input& input, const std::string& before,
                        const velk::input::amesp::AIPEditor& editor);

}  // namespace amesp_inp
