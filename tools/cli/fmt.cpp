// amesp-inp fmt: input files in canonical form.
#include "fmt.hpp"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "line_ends.hpp"
#include "patch_name.hpp"

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

struct Formatted {
    std::string text;
    std::vector<Diagnostic> findings;  // what becomes of the content
};

Formatted formatted(const std::string& text, const InputSchema& schema) {
    if (velk::core::text::trim_view(text).empty()) {
        return {text, {}};
    }
    const AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
    const std::string rendered = editor.render();
    const bool expressible = canonical_losses(editor, text, rendered).empty();
    std::string canonical = with_line_ends_of(text, expressible ? settled(rendered, schema) : rendered);
    if (is_other_format(text)) {
        Diagnostic finding;
        finding.severity = Severity::error;
        finding.code = codes::inp::other_format;
        finding.message = "No line begins with '%', '!' or '>': this is another format.";
        return {std::move(canonical), {finding}};
    }
    const bool changes = canonical != text;
    return {std::move(canonical), changes ? canonical_changes(editor, text, rendered) : std::vector<Diagnostic>()};
}

struct FormatTotals {
    std::size_t as_they_are = 0;
    std::size_t changed = 0;
    std::size_t refused = 0;
};

bool has_error(const std::vector<Diagnostic>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Diagnostic& finding) { return finding.severity == Severity::error; });
}

// One line for a file that would not stay as it is; with a difference asked for, also why and how.
int check_file(const FmtOptions& options, const Input& input, const InputSchema& schema, EditReport& report,
               FormatTotals& totals) {
    const std::string text = read_input(input);
    const Formatted after = formatted(text, schema);
    const bool refused = has_error(after.findings) && !options.output.force;
    if (after.text == text && !refused) {
        ++totals.as_they_are;
        return exit_clean;
    }
    ++(refused ? totals.refused : totals.changed);
    const bool as_json = options.output.findings.format == "json";
    if (!as_json) {
        print(listed_name(input.name) + "\n");
    }
    if (options.output.diff || as_json) {
        report_findings(report, input, {{text, after.findings}});
    }
    if (options.output.diff) {
        if (!refused) {
            deliver(options.output, input, text, after.text);
        }
    }
    return exit_findings;
}

EditOutcome format_file(const FmtOptions& options, const Input& input, const InputSchema& schema, EditReport& report) {
    const std::string text = read_input(input);
    const Formatted after = formatted(text, schema);
    if (report_findings(report, input, {{text, after.findings}}) && !options.output.force) {
        complain("'" + input.name + "' is left as it is: formatting would lose content (--force formats it)");
        return {exit_findings};
    }
    return deliver(options.output, input, text, after.text);
}

std::string counted(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " file" : " files");
}

void print_summary(const FormatTotals& totals, std::size_t inputs) {
    const std::size_t checked = totals.as_they_are + totals.changed + totals.refused;
    std::string line = counted(checked) + " checked: " + std::to_string(totals.changed) + " would change";
    if (totals.refused > 0) {
        line += ", " + std::to_string(totals.refused) + " would be refused";
    }
    if (checked < inputs) {
        line += "; " + counted(inputs - checked) + " could not be read";
    }
    std::fputs((line + "\n").c_str(), stderr);
}

}  // namespace

int run_fmt(const FmtOptions& options) {
    EditReport report{options.output.findings, find_schema(options.schema), {}, {}};
    const InputSchema schema = load_schema_file(report.schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    if (!options.check || options.output.diff) {
        refuse_mixed_output(options.output, inputs, "add -i or --check");
    }
    if (!options.check) {
        return edit_each_input(options.output, report, options.inputs, inputs,
                               [&](const Input& input) { return format_file(options, input, schema, report); });
    }
    FormatTotals totals;
    int status = exit_clean;
    for (const Input& input : inputs) {
        try {
            status = std::max(status, check_file(options, input, schema, report, totals));
        } catch (const std::runtime_error& error) {
            report_failure(report, input, error.what());
            status = exit_trouble;
        }
    }
    report.counts.files = inputs.size();
    finish(report);
    if (!options.output.findings.quiet) {
        print_summary(totals, inputs.size());
    }
    return status;
}

}  // namespace amesp_inp
