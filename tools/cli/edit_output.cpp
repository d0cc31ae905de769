// Printing and writing edited inputs.
#include "edit_output.hpp"

#include <unistd.h>

#include <cstdio>
#include <velk/input/amesp/report.hpp>

#include "output_file.hpp"
#include "unified_diff.hpp"
#include "usage_error.hpp"

namespace amesp_inp {

using namespace velk::input::amesp;

namespace {

void write(const std::string& path, const std::string& text, bool force) {
    if (const std::string warning = write_output_file(path, text, force); !warning.empty()) {
        complain(warning);
    }
}

void refuse_several_texts(const EditOutput& output, std::size_t inputs) {
    if (inputs > 1 && !output.in_place && !output.diff) {
        throw UsageError("the texts of " + std::to_string(inputs) +
                         " files cannot be printed one after the other: add -i or --diff, or name one file");
    }
}

}  // namespace

EditOutcome deliver(const EditOutput& output, const Input& input, std::string_view before, const std::string& after) {
    if (output.diff) {
        print(unified_diff(before, after, input.name));
    } else if (!output.path.empty() && output.path != "-") {
        write(output.path, after, output.force);
        return {exit_clean, true};
    } else if (output.in_place && input.path != "-") {
        if (before != after) {
            write(input.path, after, output.force);
            return {exit_clean, true};
        }
    } else {
        print(after);
    }
    return {};
}

int edit_each_input(const EditOutput& output, const InputOptions& options, std::vector<Input> inputs,
                    const std::function<EditOutcome(const Input&)>& edit) {
    const bool writes = output.in_place && !output.diff;
    if (!can_all_be_read(options, inputs)) {
        if (writes) {
            say_how_many_were_written(0, inputs.size());
        }
        return exit_trouble;
    }
    refuse_several_texts(output, inputs.size());
    if (writes && !output.force) {  // one that may not be replaced is no trouble unless it changes: found out first
        std::stable_partition(inputs.begin(), inputs.end(),
                              [](const Input& input) { return !guard_of(input.path).empty(); });
    }
    int status = exit_clean;
    std::size_t written = 0;
    for (const Input& input : inputs) {
        try {
            const EditOutcome outcome = edit(input);
            status = std::max(status, outcome.status);
            written += outcome.written ? 1 : 0;
        } catch (const std::runtime_error& error) {
            complain(error.what());
            if (writes) {
                say_how_many_were_written(written, inputs.size());
            }
            return exit_trouble;
        }
    }
    return status;
}

void say_how_many_were_written(std::size_t written, std::size_t inputs) {
    if (inputs > 1) {
        complain(std::to_string(written) + " of " + std::to_string(inputs) + " files were written");
    }
}

bool report_findings(const EditOutput& output, const Input& input, const std::string& text,
                     std::vector<Diagnostic> findings) {
    const auto is_error = [](const Diagnostic& finding) { return finding.severity == Severity::error; };
    if (output.quiet) {
        std::erase_if(findings, std::not_fn(is_error));
    }
    const bool failed = std::any_of(findings.begin(), findings.end(), is_error);
    const std::string report = text_report({input.name, text, findings}, use_color(output.color, STDERR_FILENO));
    std::fwrite(report.data(), 1, report.size(), stderr);
    return failed;
}

}  // namespace amesp_inp
