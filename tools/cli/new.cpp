// amesp-inp new: makes an input file.
#include <memory>

#include "edits.hpp"
#include "rendering_changes.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

struct NewOptions {
    std::string schema_path;
    Edits edits;
    EditOutput output;
};

int run_new(const NewOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    AIPEditor editor({}, schema);
    options.edits.apply(editor);
    const std::string name = options.output.path.empty() ? "<new>" : options.output.path;
    std::vector<Finding> findings = inexpressible(editor, {}, editor.render());
    for (const ValidationIssue& issue : editor.validate()) {
        findings.push_back({issue.severity, issue.code, issue.message, SourceLocation{}, {}, {}});
    }
    const bool hopeless = cannot_be_forced(findings);
    if (report_findings({"-", name}, "", std::move(findings)) && (hopeless || !options.output.force)) {
        complain("'" + name + "' is not made");
        return exit_findings;
    }
    deliver(options.output, {"-", name}, "", editor.render());
    return exit_clean;
}

}  // namespace

void add_new(CLI::App& program, Run& run) {
    auto options = std::make_shared<NewOptions>();
    CLI::App* const make = program.add_subcommand("new", "Makes an input file that passes check.");
    make->footer(
        "Examples:\n"
        "  amesp-inp new --geometry mol.xyz --charge 0 --multiplicity 1 --method 'b3lyp def2-svp' -o mol.inp\n"
        "  amesp-inp new --geometry mol.xyz --method 'hf sto-3g' --directive maxcore=2000 --entry scf.maxcyc=100");
    add_schema_option(*make, options->schema_path);
    for (const EditKind kind :
         {EditKind::set_geometry, EditKind::set_method, EditKind::set_directive, EditKind::set_entry}) {
        options->edits.add_option(*make, kind);
    }
    make->get_option("--geometry")->required();
    make->get_option("--method")->required();
    options->edits.add_charge_options(*make);
    make->add_option("-o,--output", options->output.path, "Write to this file (default: standard output)")
        ->type_name("OUT");
    make->add_flag("--force", options->output.force, "Write also an input that is not valid");
    make->callback([options, &run] { run = [options] { return run_new(*options); }; });
}

}  // namespace amesp_inp
