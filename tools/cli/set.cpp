// amesp-inp set: changes values of input files.
#include "set.hpp"

#include <velk/input/amesp/parser.hpp>

#include "edits.hpp"
#include "usage_error.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

}  // namespace

int run_set(const SetOptions& options) {
    EditReport report{options.output.findings, find_schema(options.schema), {}, {}};
    const InputSchema schema = load_schema_file(report.schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    if (inputs.size() > 1 && !options.output.path.empty()) {
        throw UsageError("-o takes one input file");
    }
    refuse_mixed_output(options.output, inputs, "add -i or -o");
    const Geometries geometries = read_geometries(options.edits, options.output.findings.quiet);
    return edit_each_input(options.output, report, options.inputs, inputs, [&](const Input& input) -> EditOutcome {
        const std::string text = read_input(input);
        AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
        try {
            apply(editor, options.edits, geometries);
        } catch (const EditRefused& reason) {
            report_failure(report, input, "'" + input.name + "' is left as it is: " + reason.what());
            return {exit_findings};
        }
        return finish_edit(options.output, report, input, text, editor);
    });
}

}  // namespace amesp_inp
