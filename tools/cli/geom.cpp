// amesp-inp geom: the geometry of an input file, out of and into plain XYZ files.
#include <memory>
#include <velk/input/amesp/parser.hpp>

#include "edits.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

struct GeomOptions {
    std::string path;
    std::string schema_path;
    std::string to_xyz;
    std::string from_xyz;
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
    EditOutput output;
};

int write_geometry(const GeomOptions& options, const Input& input, const std::string& text, const AIPData& data) {
    const Section* const section = data.find_section("xyz");
    if (section == nullptr || section->atoms.empty()) {
        complain("'" + input.name + "' has no >xyz section with atoms");
        return exit_findings;
    }
    EditOutput output;
    output.path = options.to_xyz;
    deliver(output, input, text, write_xyz({section->atoms, section->charge, section->multiplicity}));
    return exit_clean;
}

int run_geom(const GeomOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    const Input input{options.path, options.path == "-" ? "<stdin>" : options.path};
    const std::string text = read_input(input);
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    if (!options.to_xyz.empty()) {
        return write_geometry(options, input, text, data);
    }
    AIPEditor editor(std::move(data), schema);
    set_geometry(editor, options.from_xyz, options.charge, options.multiplicity);
    return finish_edit(options.output, input, text, editor);
}

}  // namespace

void add_geom(CLI::App& program, Run& run) {
    auto options = std::make_shared<GeomOptions>();
    CLI::App* const geom = program.add_subcommand("geom", "Takes the geometry out of an input file, or puts one in.");
    geom->footer(
        "Examples:\n"
        "  amesp-inp geom water.inp --to-xyz water.xyz       writes a plain XYZ file\n"
        "  amesp-inp geom water.inp --to-xyz -               prints it\n"
        "  amesp-inp geom -i water.inp --from-xyz new.xyz    replaces the geometry");
    geom->add_option("FILE", options->path, "Input file; - is standard input")->required();
    add_schema_option(*geom, options->schema_path);
    auto* const to = geom->add_option("--to-xyz", options->to_xyz, "Write the geometry to this file")->type_name("OUT");
    auto* const from =
        geom->add_option("--from-xyz", options->from_xyz, "Take the geometry from this file")->type_name("MOL.xyz");
    to->excludes(from);
    geom->add_option("--charge", options->charge, "Charge of the new geometry")->type_name("Q")->needs(from);
    geom->add_option("--multiplicity", options->multiplicity, "Spin multiplicity of the new geometry")
        ->type_name("M")
        ->needs(from);
    add_edit_options(*geom, options->output);
    add_canonical_option(*geom, options->output.canonical);
    geom->add_option("-o,--output", options->output.path, "Write to this file")
        ->type_name("OUT")
        ->excludes(geom->get_option("--in-place"));
    geom->add_flag("--dry-run", options->output.diff, "Print the change, for patch -p1, and write nothing");
    geom->callback([options, &run, to, from] {
        if (to->empty() && from->empty()) {
            throw CLI::RequiredError("--to-xyz or --from-xyz");
        }
        run = [options] { return run_geom(*options); };
    });
}

}  // namespace amesp_inp
