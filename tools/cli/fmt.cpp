// amesp-inp fmt: input files in canonical form.
#include "fmt.hpp"

#include <utility>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "patch_name.hpp"
#include "rendering_changes.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

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
        print(listed_name(input.name) + "\n");
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

}  // namespace

int run_fmt(const FmtOptions& options) {
    const InputSchema schema = load_schema(options.schema);
    return for_each_input(collect_inputs(options.inputs),
                          [&](const Input& input) { return format_file(options, input, schema); });
}

}  // namespace amesp_inp
