// amesp-inp geom: the geometry of an input file, out of and into plain XYZ files.
#include "geom.hpp"

#include <velk/input/amesp/parser.hpp>

#include "edits.hpp"
#include "output_file.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

int write_geometry(const GeomOptions& options, const Input& input, const std::string& text, const AIPData& data) {
    const Section* const section = data.find_section("xyz");
    if (section == nullptr || section->atoms.empty()) {
        complain("'" + input.name + "' has no >xyz section with atoms");
        return exit_findings;
    }
    EditOutput output;
    output.path = options.to_xyz;
    output.force = options.output.force;
    if (!output.force && input.path != "-" && output.path != "-") {
        refuse_same_file(output.path, input.path);
    }
    deliver(output, input, text, write_xyz({section->atoms, section->charge, section->multiplicity}));
    return exit_clean;
}

}  // namespace

int run_geom(const GeomOptions& options) {
    EditReport report{options.output.findings, find_schema(options.schema), {}, {}};
    const InputSchema schema = load_schema_file(report.schema_path);
    const Input input{options.path, options.path == "-" ? "<stdin>" : options.path};
    if (!options.from_xyz.empty()) {
        refuse_mixed_output(options.output, {input}, "add -i or -o");
    }
    const std::string text = read_input(input);
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    if (!options.to_xyz.empty()) {
        return write_geometry(options, input, text, data);
    }
    AIPEditor editor(std::move(data), schema);
    set_geometry(editor, read_geometry(options.from_xyz, options.geometry));
    const int status = finish_edit(options.output, report, input, text, editor).status;
    finish(report);
    return status;
}

}  // namespace amesp_inp
