// The command line of the program: what it asks for, as a call of one verb with plain options.
#pragma once

#include <functional>

namespace amesp_inp {

// What the command line asks for: to be called once, returns the exit status. Help and usage errors are printed here,
// and what comes back then only returns their status.
std::function<int()> read_command_line(int argc, char** argv);

}  // namespace amesp_inp
