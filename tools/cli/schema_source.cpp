// Finding the schema, or saying where it was looked for.
#include "schema_source.hpp"

#include <stdexcept>
#include <velk/core/resource.hpp>

namespace amesp_inp {
namespace {

using velk::core::resource::getenv_string;

std::string places_searched() {
    const std::string variable = getenv_string("VELK_AMESP_INP_SCHEMA_YAML");
    const std::string data_home = getenv_string("XDG_DATA_HOME");
    const std::string data_dirs = getenv_string("XDG_DATA_DIRS");
    std::string text = "no schema found; looked for\n";
    text += "  the file named by VELK_AMESP_INP_SCHEMA_YAML (";
    text += variable.empty() ? "not set" : "'" + variable + "' is no regular file";
    text += ")\n  velk/schemas/input/amesp.yaml in ";
    text += data_home.empty() ? getenv_string("HOME") + "/.local/share" : data_home;
    text += "\n  share/velk/schemas/input/amesp.yaml of the installation\n  velk/schemas/input/amesp.yaml in ";
    text += data_dirs.empty() ? "/usr/local/share:/usr/share" : data_dirs;
    text += "\nname one with --schema FILE";
    return text;
}

}  // namespace

velk::input::amesp::InputSchema load_schema(const std::string& path) {
    const std::string found = path.empty() ? velk::input::amesp::resolve_schema_path("") : path;
    if (found.empty()) {
        throw std::runtime_error(places_searched());
    }
    return velk::input::amesp::InputSchema::from_file(found);
}

}  // namespace amesp_inp
