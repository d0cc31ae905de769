// amesp-inp fmt: input files in canonical form.
#include <memory>
#include <utility>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "rendering_changes.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

struct FmtOptions {
    InputOptions inputs;
    EditOutput output;
    std::string schema_path;
    bool check = false;
};

// A comment that only a dropped marker kept below the head is read as a header comment the next time, which changes the
// blank lines around it: what is written shall be what formatting it again gives.
std::string settled(std::string text, const InputSchema& schema) {
    constexpr int most_rounds = 4;
    for (int round = 0; round < most_rounds; ++round) {
        std::string again = AIPEditor(AIPParser::parse_string(text, schema, {true, false}).data, schema).render();
        if (again == text) {
            break;
        }
        text = std::move(again);
    }
    return text;
}

int format_file(const FmtOptions& options, const Input& input, const InputSchema& schema) {
    const std::string text = read_input(input);
    const AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
    const std::string rendered = editor.render();
    const bool expressible = inexpressible(editor, text, rendered).empty();
    const std::string formatted = expressible ? settled(rendered, schema) : rendered;
    if (formatted == text && !options.check) {
        deliver(options.output, input, text, formatted);
        return exit_clean;
    }
    const bool refused =
        report_findings(input, text, rendering_changes(editor, text, rendered)) && !options.output.force;
    if (options.check) {
        if (formatted == text) {
            return exit_clean;
        }
        print(input.name + "\n");
        if (options.output.diff && !refused) {
            deliver(options.output, input, text, formatted);
        }
        return exit_findings;
    }
    if (refused) {
        complain("'" + input.name + "' is left as it is: formatting would lose content (--force formats it)");
        return exit_findings;
    }
    deliver(options.output, input, text, formatted);
    return exit_clean;
}

int run_fmt(const FmtOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    return for_each_input(collect_inputs(options.inputs),
                          [&](const Input& input) { return format_file(options, input, schema); });
}

}  // namespace

void add_fmt(CLI::App& program, Run& run) {
    auto options = std::make_shared<FmtOptions>();
    CLI::App* const fmt = program.add_subcommand("fmt", "Writes input files in canonical form.");
    fmt->footer(
        "Examples:\n"
        "  amesp-inp fmt water.inp            prints the canonical text\n"
        "  amesp-inp fmt -i jobs/             rewrites every *.inp and *.aip file below a directory\n"
        "  amesp-inp fmt --check *.inp        lists the files that would change\n"
        "  amesp-inp fmt --diff water.inp     shows what would change, for patch -p1");
    add_input_options(*fmt, options->inputs);
    add_schema_option(*fmt, options->schema_path);
    add_edit_options(*fmt, options->output);
    fmt->add_flag("--check", options->check, "List the files that would change; exit status 1 if there are any");
    fmt->add_flag("--diff", options->output.diff, "Print the change instead of the text");
    fmt->callback([options, &run] { run = [options] { return run_fmt(*options); }; });
}

}  // namespace amesp_inp
