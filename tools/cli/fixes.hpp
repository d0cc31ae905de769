// Fixes that the program makes by itself.
#pragma once

#include <string>
#include <string_view>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

enum class Fixes {
    certain,  // an 'end' that is missing where a known line shows that it was meant, or at the end of the text
    all,      // also before lines of unknown names, and misspelt names that are near to one known name
};

// `text` with the fixes; every other byte stays as it is. Text that needs none comes back as it is. Time is
// proportional to the text.
std::string fixed(std::string_view text, const velk::input::amesp::InputSchema& schema, Fixes fixes);

}  // namespace amesp_inp
