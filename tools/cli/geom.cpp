// amesp-inp geom: the geometry of an input file, out of and into plain XYZ files.
#include "geom.hpp"

#include <filesystem>
#include <velk/input/amesp/parser.hpp>

#include "edits.hpp"
#include "output_file.hpp"
#include "usage_error.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

int write_geometry(const GeomOptions& options, const Input& input, const AIPData& data) {
    const Section* const section = data.find_section("xyz");
    if (section == nullptr || section->atoms.empty()) {
        complain("'" + input.name + "' has no >xyz section with atoms");
        return exit_findings;
    }
    EditOutput output;
    output.path = options.to_xyz;
    output.force = options.output.force;
    output.diff = options.output.diff;
    if (!output.diff && !output.force && input.path != "-" && output.path != "-") {
        refuse_same_file(output.path, input.path);
    }
    const Input target{output.path, output.path};
    const std::string before = output.diff && std::filesystem::exists(output.path) ? read_input(target) : std::string();
    deliver(output, target, before, write_xyz({section->atoms, section->charge, section->multiplicity}));
    return exit_clean;
}

void refuse_what_makes_no_sense(const GeomOptions& options, const Input& input) {
    if (options.to_xyz.empty()) {
        refuse_mixed_output(options.output, {input}, "add -i or -o");
    } else if (options.to_xyz == "-" && options.output.diff) {
        throw UsageError("--diff shows the change of a file: --to-xyz has to name one");
    }
}

}  // namespace

int run_geom(const GeomOptions& options) {
    EditReport report{options.output.findings, find_schema(options.schema), {}, {}};
    const InputSchema schema = load_schema_file(report.schema_path);
    const Input input{options.path, options.path == "-" ? "<stdin>" : options.path};
    refuse_what_makes_no_sense(options, input);
    const std::string text = read_input(input);
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    if (!options.to_xyz.empty()) {
        return write_geometry(options, input, data);
    }
    AIPEditor editor(std::move(data), schema);
    set_geometry(editor, read_geometry(options.from_xyz, options.geometry, options.output.findings.quiet));
    const int status = finish_edit(options.output, report, input, text, editor).status;
    finish(report);
    return status;
}

}  // namespace amesp_inp
