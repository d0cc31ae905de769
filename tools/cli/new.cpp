// amesp-inp new: makes an input file.

#include "new.hpp"

#include <velk/input/amesp/formatting.hpp>

#include "edits.hpp"
#include "output_file.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

}  // namespace

int run_new(const NewOptions& options) {
    refuse_mixed_output(options.output, {}, "add -o");
    EditReport report{options.output.findings, find_schema(options.schema), {}, {}};
    const InputSchema schema = load_schema_file(report.schema_path);
    AIPEditor editor({}, schema);
    apply(editor, options.edits, read_geometries(options.edits, options.output.findings.quiet));
    const std::string name = options.output.path.empty() ? "<new>" : options.output.path;
    std::vector<Diagnostic> findings = canonical_losses(editor, {}, editor.render());
    for (const ValidationIssue& issue : editor.validate()) {
        findings.push_back(to_diagnostic(issue, TextPositions({})));
    }
    const bool hopeless = cannot_be_forced(findings);
    const bool has_error = report_findings(report, {"-", name}, {{{}, std::move(findings)}});
    if (has_error && (hopeless || !options.output.force)) {
        complain("'" + name + "' is not made");
        finish(report);
        return exit_findings;
    }
    if (!options.output.force && !options.output.diff && options.output.path != "-") {
        refuse_existing(options.output.path);
    }
    deliver(options.output, {"-", name}, "", editor.render());
    finish(report);
    return exit_clean;
}

}  // namespace amesp_inp
