// A mistake on the command line that shows only when a verb runs.
#pragma once

#include <stdexcept>

namespace amesp_inp {

// Reported with the verb that it was made with.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace amesp_inp
