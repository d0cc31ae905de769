// The program amesp-inp: its subcommands, its help and what becomes of errors.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "exit_status.hpp"
#include "output.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

struct Subcommand {
    std::string_view name;
    void (*add)(CLI::App&, Run&);
};

constexpr std::array<Subcommand, 8> subcommands = {{{"check", add_check},
                                                    {"explain", add_explain},
                                                    {"show", add_show},
                                                    {"fmt", add_fmt},
                                                    {"get", add_get},
                                                    {"set", add_set},
                                                    {"geom", add_geom},
                                                    {"new", add_new}}};

// Only the one that is called, where the first word says so: making the options of all of them takes longer than
// checking a small file.
void add_subcommands(CLI::App& program, std::string_view first_word, Run& run) {
    const auto* const called = std::find_if(subcommands.begin(), subcommands.end(),
                                            [&](const Subcommand& command) { return command.name == first_word; });
    if (called != subcommands.end()) {
        called->add(program, run);
        return;
    }
    for (const Subcommand& command : subcommands) {
        command.add(program, run);
    }
}

// The examples of a subcommand, which are its footer, open its help.
class ExamplesFirst : public CLI::Formatter {
public:
    std::string make_description(const CLI::App* app) const override {
        const std::string examples = app->get_footer();
        return examples.empty() ? Formatter::make_description(app)
                                : examples + "\n\n" + Formatter::make_description(app);
    }
    std::string make_footer(const CLI::App* /*app*/) const override { return {}; }
};

int run_program(int argc, char** argv) {
    CLI::App program("Checks, shows and edits input files of the AMESP quantum-chemistry program.", "amesp-inp");
    program.formatter(std::make_shared<ExamplesFirst>());
    program.set_version_flag("--version", "amesp-inp " AMESP_INP_VERSION);
    program.require_subcommand(1);
    Run run;
    add_subcommands(program, argc > 1 ? argv[1] : "", run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool is_help = error.get_exit_code() == 0;
        program.exit(error, std::cout, std::cerr);
        return is_help ? exit_clean : exit_trouble;
    }
    return run();
}

}  // namespace
}  // namespace amesp_inp

int main(int argc, char** argv) {
    using namespace amesp_inp;
    int status = exit_trouble;
    try {
        status = run_program(argc, argv);
    } catch (const std::exception& error) {
        complain(error.what());
    }
    if (!flush_output()) {
        complain("cannot write to standard output");
        return exit_trouble;
    }
    return status;
}
