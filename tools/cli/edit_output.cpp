// Printing and writing edited inputs.
#include "edit_output.hpp"

#include <cstdio>

#include "output_file.hpp"
#include "unified_diff.hpp"
#include "usage_error.hpp"

namespace amesp_inp {

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

struct EditTotal {
    int status = exit_clean;
    std::size_t written = 0;
    bool failed = false;
};

void edit_one(const Input& input, const std::function<EditOutcome(const Input&)>& edit, EditReport& report,
              EditTotal& total) {
    const std::size_t reported = report.counts.files;
    try {
        const EditOutcome outcome = edit(input);
        total.status = std::max(total.status, outcome.status);
        total.written += outcome.written ? 1 : 0;
    } catch (const std::runtime_error& error) {
        total.failed = true;
        if (report.counts.files > reported) {
            complain(error.what());
        } else {
            report_failure(report, input, error.what());
        }
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

int edit_each_input(const EditOutput& output, EditReport& report, const InputOptions& options,
                    std::vector<Input> inputs, const std::function<EditOutcome(const Input&)>& edit) {
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
    EditTotal total;
    for (std::size_t i = 0; i < inputs.size() && !total.failed; ++i) {
        edit_one(inputs[i], edit, report, total);
    }
    finish(report);
    if (writes && total.failed) {
        say_how_many_were_written(total.written, inputs.size());
    }
    return total.failed ? exit_trouble : total.status;
}

void say_how_many_were_written(std::size_t written, std::size_t inputs) {
    if (inputs > 1) {
        complain(std::to_string(written) + " of " + std::to_string(inputs) + " files were written");
    }
}

void refuse_mixed_output(const EditOutput& output, const std::vector<Input>& inputs, const char* ways) {
    const auto is_stdin = [](const Input& input) { return input.path == "-"; };
    const bool to_files = output.path.empty() ? output.in_place && std::none_of(inputs.begin(), inputs.end(), is_stdin)
                                              : output.path != "-";
    if (output.findings.format == "json" && (output.diff || !to_files)) {
        throw UsageError(std::string("findings as JSON and the text cannot both go to standard output: ") +
                         (output.diff ? "leave out --diff" : ways));
    }
}

}  // namespace amesp_inp
