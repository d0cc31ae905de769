// The program amesp-inp: what becomes of errors, and of output that cannot be written.
#include <exception>

#include "command_line.hpp"
#include "exhausted_memory.hpp"
#include "exit_status.hpp"
#include "output.hpp"
#include "standard_streams.hpp"

int main(int argc, char** argv) {
    using namespace amesp_inp;
    if (!hold_standard_streams()) {
        complain("a standard stream is closed, and /dev/null cannot be opened");
        return exit_trouble;
    }
    int status = exit_trouble;
    try {
        status = read_command_line(argc, argv)();
    } catch (const ErrorInLines& error) {
        complain_in_lines(error.what());
    } catch (const std::exception& error) {
        complain(reason_of(error));
    }
    if (!flush_output()) {
        complain("cannot write to standard output");
        return exit_trouble;
    }
    return messages_are_written() ? status : exit_trouble;
}
