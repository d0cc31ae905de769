// The end of the program when memory is exhausted.
#include "exhausted_memory.hpp"

#include <cstdlib>

#include "exit_status.hpp"
#include "output.hpp"

namespace amesp_inp {
namespace {

[[noreturn]] void end_the_program() {
    complain(reason_of(std::bad_alloc()));
    std::_Exit(exit_trouble);
}

}  // namespace

EndWithoutMemory::EndWithoutMemory() noexcept : before_(std::set_new_handler(end_the_program)) {}

}  // namespace amesp_inp
