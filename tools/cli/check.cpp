// amesp-inp check: findings of many files, in order, whatever the number of threads.
#include "check.hpp"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>
#include <velk/input/amesp/report.hpp>

#include "check_file.hpp"
#include "edit_output.hpp"
#include "exit_status.hpp"
#include "inputs.hpp"
#include "output.hpp"
#include "output_file.hpp"
#include "progress.hpp"
#include "usage_error.hpp"
#include "workers.hpp"

namespace amesp_inp {
namespace {

using velk::input::amesp::Applicability;
using velk::input::amesp::json_report_head;
using velk::input::amesp::SchemaSource;

struct Totals : ReportCounts {
    std::size_t unwritten = 0;
    std::size_t fixed = 0;
};

// Finding out how many processors there are takes reading a file: not for one file to check.
unsigned worker_count(const CheckOptions& options, std::size_t files) {
    if (files <= 1) {
        return 1;
    }
    return options.threads != 0 ? options.threads : std::max(1U, std::thread::hardware_concurrency());
}

std::string counted(std::size_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void print_summary(const Totals& totals, bool only_shown) {
    std::string line = counted(totals.files - totals.unreadable, "file") + " checked: ";
    line += counted(totals.errors, "error") + ", " + counted(totals.warnings, "warning");
    if (totals.fixed > 0) {
        line += "; " + counted(totals.fixed, "file") + (only_shown ? " would be fixed" : " fixed");
    }
    if (totals.unreadable > 0) {
        line += "; " + counted(totals.unreadable, "file") + " could not be read";
    }
    if (totals.unwritten > 0) {
        line += "; " + counted(totals.unwritten, "file") + " could not be fixed";
    }
    std::fputs((line + "\n").c_str(), stderr);
}

int exit_status(const Totals& totals, const std::string& fail_on) {
    if (totals.unreadable > 0 || totals.unwritten > 0) {
        return exit_trouble;
    }
    const bool failed = fail_on != "never" && (totals.errors > 0 || (fail_on == "warning" && totals.warnings > 0));
    return failed ? exit_findings : exit_clean;
}

FileCheck file_check(const CheckOptions& options) {
    FileCheck check;
    if (!options.fix.empty()) {
        check.fixes = options.fix == "all" ? Applicability::likely : Applicability::certain;
    }
    check.diff = options.diff;
    check.force = options.force;
    check.canonical = options.canonical;
    check.json = options.format == "json";
    check.color = !check.json && use_color(options.color, STDOUT_FILENO);
    return check;
}

// One that may not be replaced is no trouble unless there is something to fix in it.
bool can_all_be_written(const std::vector<Input>& inputs, const SchemaSource& schema, FileCheck check) {
    check.diff = true;
    bool all = true;
    for (const Input& input : inputs) {
        const std::string guard = guard_of(input.path);
        if (!guard.empty() && check_file(input, schema, check).fixed) {
            complain("cannot write '" + input.path + "': " + guard);
            all = false;
        }
    }
    return all;
}

// What is to be fixed in place is looked at before the first file is written.
bool can_all_be_fixed(const CheckOptions& options, const std::vector<Input>& inputs, const SchemaSource& schema,
                      const FileCheck& check) {
    const bool can = can_all_be_read(options.inputs, inputs) &&
                     (check.diff || check.force || can_all_be_written(inputs, schema, check));
    if (!can && !check.diff) {
        say_how_many_were_written(0, inputs.size());
    }
    return can;
}

// The first failure of a run that writes stops it: what has not been begun then is left alone.
FileReport check_unless(std::atomic<bool>& stops, const Input& input, const SchemaSource& schema,
                        const FileCheck& check) {
    FileReport report;
    report.skipped = stops;
    if (!report.skipped) {
        report = check_file(input, schema, check);
        if (report.failed && check.fixes && !check.diff) {
            stops = true;
        }
    }
    return report;
}

void refuse_what_cannot_be_fixed(const std::vector<Input>& inputs, const CheckOptions& options) {
    const auto is_stdin = [](const Input& input) { return input.path == "-"; };
    if (!options.fix.empty() && !options.diff && std::any_of(inputs.begin(), inputs.end(), is_stdin)) {
        throw UsageError("standard input cannot be fixed in place: add --diff");
    }
}

void add(Totals& totals, const FileReport& report) {
    if (report.skipped) {
        return;
    }
    ++totals.files;
    if (report.unreadable) {
        ++totals.unreadable;
    } else if (!report.trouble.empty()) {
        ++totals.unwritten;
    }
    totals.fixed += report.fixed ? 1 : 0;
    totals.errors += report.errors;
    totals.warnings += report.warnings;
}

bool is_silent(const FileReport& report) {
    return report.warning.empty() && report.trouble.empty() && report.findings.empty() && report.diff.empty();
}

// Findings make room on standard output for the text of a patch.
void print_report(const FileReport& report, const FileCheck& check, bool is_first) {
    for (const std::string* const message : {&report.warning, &report.trouble}) {
        if (!message->empty()) {
            complain(*message);
        }
    }
    print(report.diff);
    if (check.diff) {
        std::fwrite(report.findings.data(), 1, report.findings.size(), stderr);
    } else if (!report.findings.empty()) {
        if (check.json) {
            print(is_first ? "\n" : ",\n");
            print(report.findings);
        } else {
            print_styled(report.findings);
        }
    }
}

}  // namespace

int run_check(const CheckOptions& options) {
    const std::string schema_path = find_schema(options.schema);
    const SchemaSource schema = load_schema_file(schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    refuse_what_cannot_be_fixed(inputs, options);
    const FileCheck check = file_check(options);
    if (check.fixes && !can_all_be_fixed(options, inputs, schema, check)) {
        return exit_trouble;
    }
    std::atomic<bool> stops = false;
    Totals totals;
    Progress progress(inputs.size(), !options.quiet);
    if (check.json) {
        print(json_report_head(schema_path));
    }
    in_order(
        inputs.size(), worker_count(options, inputs.size()),
        [&](std::size_t i) { return check_unless(stops, inputs[i], schema, check); },
        [&](const FileReport& report) {
            if (!is_silent(report)) {
                progress.clear();
                print_report(report, check, totals.files == 0);
            }
            add(totals, report);
            progress.step();
        });
    progress.clear();
    if (stops) {
        say_how_many_were_written(totals.fixed, inputs.size());
    }
    if (check.json) {
        print(json_report_end(totals));
    }
    if (!flush_output()) {
        throw std::runtime_error("cannot write to standard output");
    }
    if (!options.quiet) {
        print_summary(totals, options.diff);
    }
    return exit_status(totals, options.fail_on);
}

}  // namespace amesp_inp
