// Edits as the command line spells them, for the subcommands that change or make an input.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <velk/input/amesp/editor.hpp>

#include "edit_output.hpp"
#include "xyz_file.hpp"

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

// The edits of one command line, in the order given.
class Edits {
public:
    // Adds the option of an edit to a subcommand, which must outlive this.
    void add_option(CLI::App& subcommand, EditKind kind);
    void add_charge_options(CLI::App& subcommand);

    // Charge and multiplicity come from the options, else from the XYZ file, else from the geometry that is replaced.
    // Throws std::runtime_error for an argument of the wrong form and for an XYZ file that cannot be read.
    void apply(velk::input::amesp::AIPEditor& editor) const;

private:
    struct Option {
        EditKind kind;
        CLI::Option* option;
    };

    void apply_one(velk::input::amesp::AIPEditor& editor, EditKind kind, const std::string& argument) const;

    const CLI::App* subcommand_ = nullptr;
    std::vector<Option> options_;
    std::optional<std::int32_t> charge_;
    std::optional<std::int32_t> multiplicity_;
};

// Replaces the geometry by one from an XYZ file, as said for Edits::apply.
void set_geometry(velk::input::amesp::AIPEditor& editor, const std::string& xyz_path,
                  std::optional<std::int32_t> charge, std::optional<std::int32_t> multiplicity);

// Whether an edit asks for what no canonical text says: that makes no sense even when forced.
bool cannot_be_forced(const std::vector<Finding>& findings);

// Delivers the edited document, laid over the text that it was read from or in canonical form, unless that text cannot
// say what the document holds or has errors that the text before did not have; those are reported. Returns the exit
// status.
int finish_edit(const EditOutput& output, const Input& input, const std::string& before,
                const velk::input::amesp::AIPEditor& editor);

}  // namespace amesp_inp
