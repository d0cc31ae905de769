// The program amesp-inp: its subcommands, its help and what becomes of errors.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "exit_status.hpp"
#include "output.hpp"
#include "subcommands.hpp"

namespace amesp_inp {
namespace {

constexpr auto subcommands = {add_check, add_explain, add_show, add_fmt, add_get, add_set, add_geom, add_new};

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
    for (const auto add : subcommands) {
        add(program, run);
    }
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
