// The subcommands. Each adds itself to the program and, when it is the one called, sets what is to be run; that returns
// the exit status. A new one gets a file of its own, a line here and a line in the table of main.cpp.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace amesp_inp {

using Run = std::function<int()>;

void add_check(CLI::App& program, Run& run);
void add_explain(CLI::App& program, Run& run);
void add_fmt(CLI::App& program, Run& run);
void add_geom(CLI::App& program, Run& run);
void add_get(CLI::App& program, Run& run);
void add_new(CLI::App& program, Run& run);
void add_set(CLI::App& program, Run& run);
void add_show(CLI::App& program, Run& run);

}  // namespace amesp_inp
