// Runs the pairs through Google Benchmark, whose flags all hold (--benchmark_filter=REGEX), and prints the table.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>

#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::map<std::string, Target>& targets() {
    static std::map<std::string, Target> all;
    return all;
}

// By place; groups of one place in the order of their making.
std::multimap<Place, void (*)()>& groups() {
    static std::multimap<Place, void (*)()> all;
    return all;
}

std::string time_text(double seconds) {
    char text[32];
    if (seconds < 1e-6) {
        std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
    } else if (seconds < 1e-3) {
        std::snprintf(text, sizeof text, "%.2f us", seconds * 1e6);
    } else {
        std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
    }
    return text;
}

class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override {
        print_table_head();
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string name = run.run_name.function_name;
            if (run.error_occurred) {
                std::printf("| %s: %s |\n", name.c_str(), run.error_message.c_str());
                continue;
            }
            const double first = run.counters.at("first");
            const double second = run.counters.at("second");
            print_row(name, first / second, target_of(name), time_text(first) + " / " + time_text(second));
        }
    }
};

}  // namespace

RowGroup::RowGroup(Place place, void (*add)()) {
    groups().emplace(place, add);
}

void add_all_rows() {
    for (const auto& [place, add] : groups()) {
        add();
    }
}

double patience() {
    const char* const text = std::getenv("AMESP_BENCH_PATIENCE");
    return text != nullptr ? std::atof(text) : 1.0;
}

void set_target(const std::string& row, Target target) {
    targets()[row] = target;
}

Target target_of(const std::string& row) {
    return targets().at(row);
}

}  // namespace velk::bench

int main(int argc, char** argv) try {
    velk::bench::add_all_rows();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    velk::bench::TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
