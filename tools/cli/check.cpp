// amesp-inp check: findings of many files, in order, whatever the number of threads.
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "check_file.hpp"
#include "edit_output.hpp"
#include "exit_status.hpp"
#include "inputs.hpp"
#include "output.hpp"
#include "schema_source.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

using velk::input::amesp::InputSchema;

struct CheckOptions {
    InputOptions inputs;
    std::string schema_path;
    std::string format = "text";
    std::string fail_on = "error";
    std::string color = "auto";
    std::string fix;
    bool diff = false;
    bool canonical = false;
    bool quiet = false;
    unsigned threads = 0;  // as many as there are processors
};

struct Totals {
    std::size_t files = 0;
    std::size_t unreadable = 0;
    std::size_t unwritten = 0;
    std::size_t fixed = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

bool use_color(const std::string& when) {
    if (when != "auto") {
        return when == "always";
    }
    const char* const no_color = std::getenv("NO_COLOR");
    return (no_color == nullptr || *no_color == '\0') && ::isatty(STDOUT_FILENO) == 1;
}

// Finding out how many processors there are takes reading a file: not for one file to check.
unsigned worker_count(const CheckOptions& options, std::size_t files) {
    if (files <= 1) {
        return 1;
    }
    return options.threads != 0 ? options.threads : std::max(1U, std::thread::hardware_concurrency());
}

// Runs `make(i)` for every i below `count` on several threads and `use` on the results, in order, on this one.
template <class Make, class Use>
void in_order(std::size_t count, unsigned threads, Make make, Use use) {
    if (threads <= 1) {
        for (std::size_t i = 0; i < count; ++i) {
            use(make(i));
        }
        return;
    }
    std::vector<std::optional<FileReport>> results(count);
    std::mutex mutex;
    std::condition_variable ready;
    std::atomic<std::size_t> next = 0;
    std::vector<std::jthread> workers;
    for (unsigned worker = 0; worker < std::min<std::size_t>(threads, count); ++worker) {
        workers.emplace_back([&] {
            for (std::size_t i = next++; i < count; i = next++) {
                FileReport result = make(i);
                const std::lock_guard lock(mutex);
                results[i] = std::move(result);
                ready.notify_one();
            }
        });
    }
    for (std::size_t i = 0; i < count; ++i) {
        std::unique_lock lock(mutex);
        ready.wait(lock, [&] { return results[i].has_value(); });
        FileReport result = std::move(*results[i]);
        results[i].emplace();
        lock.unlock();
        use(std::move(result));
    }
}

// A bar on standard error, once the work turns out to be long.
class Progress {
public:
    Progress(std::size_t total, bool wanted)
        : total_(total), wanted_(wanted && total > 1 && ::isatty(STDERR_FILENO) == 1) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { clear(); }

    void step() {
        ++done_;
        const auto now = Clock::now();
        if (!wanted_ || now < next_) {
            return;
        }
        constexpr int width = 30;
        const int filled = static_cast<int>(done_ * width / total_);
        std::fprintf(stderr, "\r[%.*s%*s] %zu/%zu", filled, "##############################", width - filled, "", done_,
                     total_);
        shown_ = true;
        next_ = now + std::chrono::milliseconds(100);
    }

    // Takes the bar away before something else is printed.
    void clear() {
        if (shown_) {
            std::fputs("\r\033[K", stderr);
            shown_ = false;
        }
    }

private:
    using Clock = std::chrono::steady_clock;
    std::size_t total_;
    bool wanted_;
    bool shown_ = false;
    std::size_t done_ = 0;
    Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
};

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

void print_json_end(const Totals& totals) {
    print("\n],\"summary\":{\"files\":" + std::to_string(totals.files) +
          ",\"unreadable\":" + std::to_string(totals.unreadable) + ",\"errors\":" + std::to_string(totals.errors) +
          ",\"warnings\":" + std::to_string(totals.warnings) + "}}\n");
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
        check.fixes = options.fix == "all" ? Fixes::all : Fixes::certain;
    }
    check.diff = options.diff;
    check.canonical = options.canonical;
    check.json = options.format == "json";
    check.color = !check.json && use_color(options.color);
    return check;
}

void refuse_what_cannot_be_fixed(const std::vector<Input>& inputs, const CheckOptions& options) {
    const auto is_stdin = [](const Input& input) { return input.path == "-"; };
    if (!options.fix.empty() && !options.diff && std::any_of(inputs.begin(), inputs.end(), is_stdin)) {
        throw std::runtime_error("standard input cannot be fixed in place: add --diff");
    }
}

void add(Totals& totals, const FileReport& report) {
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

// Findings make room on standard output for the text of a patch.
void print_report(const FileReport& report, const FileCheck& check, bool is_first) {
    if (!report.trouble.empty()) {
        complain(report.trouble);
    }
    print(report.diff);
    if (check.diff) {
        std::fwrite(report.findings.data(), 1, report.findings.size(), stderr);
    } else if (!report.findings.empty()) {
        print(check.json ? (is_first ? "\n" : ",\n") : "");
        print(report.findings);
    }
}

int run_check(const CheckOptions& options) {
    const InputSchema schema = load_schema(options.schema_path);
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    refuse_what_cannot_be_fixed(inputs, options);
    const FileCheck check = file_check(options);
    Totals totals;
    Progress progress(inputs.size(), !options.quiet);
    if (check.json) {
        print("{\"format\":\"amesp-inp findings\",\"version\":1,\"files\":[");
    }
    in_order(
        inputs.size(), worker_count(options, inputs.size()),
        [&](std::size_t i) { return check_file(inputs[i], schema, check); },
        [&](const FileReport& report) {
            if (!report.trouble.empty() || !report.findings.empty() || !report.diff.empty()) {
                progress.clear();
                print_report(report, check, totals.files == 0);
            }
            add(totals, report);
            progress.step();
        });
    progress.clear();
    if (check.json) {
        print_json_end(totals);
    }
    if (!flush_output()) {
        throw std::runtime_error("cannot write to standard output");
    }
    if (!options.quiet) {
        print_summary(totals, options.diff);
    }
    return exit_status(totals, options.fail_on);
}

}  // namespace

void add_check(CLI::App& program, Run& run) {
    auto options = std::make_shared<CheckOptions>();
    CLI::App* const check = program.add_subcommand("check", "Prints what is wrong with input files.");
    check->footer(
        "Examples:\n"
        "  amesp-inp check water.inp             one file\n"
        "  amesp-inp check -j 8 jobs/            every *.inp and *.aip file below a directory\n"
        "  amesp-inp check --format json *.inp   for other programs\n"
        "  amesp-inp check --fix --diff *.inp    what the certain fixes would change\n"
        "  make-input | amesp-inp check -        standard input");
    add_input_options(*check, options->inputs);
    add_schema_option(*check, options->schema_path);
    auto* const format = check->add_option("--format", options->format, "How findings are printed (default: text)")
                             ->check(CLI::IsMember({"text", "json"}));
    check->add_option("--fail-on", options->fail_on, "Findings that make the exit status 1 (default: error)")
        ->check(CLI::IsMember({"error", "warning", "never"}));
    check->add_option("--color", options->color, "Colours in text (default: auto; NO_COLOR is heeded)")
        ->check(CLI::IsMember({"auto", "always", "never"}));
    auto* const fix = check
                          ->add_flag("--fix{certain}", options->fix,
                                     "Fix the files, then check them: missing ends; with --fix=all also names that are "
                                     "near to one known name")
                          ->check(CLI::IsMember({"certain", "all"}));
    check
        ->add_flag("--diff", options->diff,
                   "Print the fixes, for patch -p1, and write nothing; findings go to standard error")
        ->needs(fix)
        ->excludes(format);
    add_canonical_option(*check, options->canonical);
    check->get_option("--canonical")->needs(fix);
    check->add_flag("-q,--quiet", options->quiet, "No summary and no progress bar");
    check->add_option("-j,--jobs", options->threads, "Worker threads (default: the number of processors)")
        ->type_name("N")
        ->check(CLI::Range(1U, 1024U));
    check->callback([options, &run] { run = [options] { return run_check(*options); }; });
}

}  // namespace amesp_inp
