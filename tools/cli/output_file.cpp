// Writes files and puts into words what became of it.
#include "output_file.hpp"

#include <stdexcept>
#include <velk/core/fs.hpp>

namespace amesp_inp {

std::string write_output_file(const std::string& path, std::string_view text) {
    using velk::core::fs::WriteOutcome;
    const auto [outcome, reason] = velk::core::fs::write_text_file(path, text);
    if (outcome == WriteOutcome::not_written) {
        throw std::runtime_error("cannot write '" + path + "': " + std::string(reason));
    }
    if (outcome == WriteOutcome::not_synced) {
        return "warning: '" + path + "' is written, but its directory could not be synced: " + std::string(reason);
    }
    return {};
}

}  // namespace amesp_inp
