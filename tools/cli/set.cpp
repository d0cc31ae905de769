// amesp-inp set: changes values of input files.
#include <memory>
#include <velk/input/amesp/parser.hpp>

#include "edits.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

struct SetOptions {
    InputOptions inputs;
    EditOutput output;
    std::string schema_path;
    Edits edits;
};

int run_set(const SetOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    if (inputs.size() > 1 && !options.output.path.empty()) {
        throw std::runtime_error("-o takes one input file");
    }
    return for_each_input(inputs, [&](const Input& input) {
        const std::string text = read_input(input);
        AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
        options.edits.apply(editor);
        return finish_edit(options.output, input, text, editor);
    });
}

}  // namespace

void add_set(CLI::App& program, Run& run) {
    auto options = std::make_shared<SetOptions>();
    CLI::App* const set = program.add_subcommand("set", "Changes values of input files, in the order of the options.");
    set->footer(
        "Examples:\n"
        "  amesp-inp set water.inp --directive maxcore=4000       prints the changed text\n"
        "  amesp-inp set -i jobs/ --entry scf.maxcyc=200          rewrites many files\n"
        "  amesp-inp set water.inp --method 'b3lyp def2-tzvp' -o tz.inp\n"
        "  amesp-inp set water.inp --geometry mol.xyz --charge 0 --multiplicity 1 --dry-run");
    add_input_options(*set, options->inputs);
    add_schema_option(*set, options->schema_path);
    for (const EditKind kind : {EditKind::set_directive, EditKind::unset_directive, EditKind::set_method,
                                EditKind::add_token, EditKind::remove_token, EditKind::set_entry, EditKind::unset_entry,
                                EditKind::remove_section, EditKind::set_geometry}) {
        options->edits.add_option(*set, kind);
    }
    options->edits.add_charge_options(*set);
    for (const char* const option : {"--charge", "--multiplicity"}) {
        set->get_option(option)->needs(set->get_option("--geometry"));
    }
    add_edit_options(*set, options->output);
    add_canonical_option(*set, options->output.canonical);
    set->add_option("-o,--output", options->output.path, "Write to this file")
        ->type_name("OUT")
        ->excludes(set->get_option("--in-place"));
    set->add_flag("--dry-run", options->output.diff, "Print the change, for patch -p1, and write nothing");
    set->callback([options, &run] { run = [options] { return run_set(*options); }; });
}

}  // namespace amesp_inp
