// Holds the numbers of standard streams that are closed.
#include "standard_streams.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace amesp_inp {

bool hold_standard_streams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const bool is_closed = ::fcntl(stream, F_GETFD) == -1;
        // The lowest number that is free is the one given.
        if (is_closed && ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) {
            return false;
        }
    }
    return true;
}

}  // namespace amesp_inp
