// Finding the schema, or saying where it was looked for.
#include "schema_source.hpp"

#include <new>
#include <stdexcept>
#include <string_view>
#include <velk/core/resource.hpp>
#include <velk/input/amesp/report.hpp>

#include "output.hpp"

namespace amesp_inp {

using velk::input::amesp::InputSchema;

namespace {

using velk::core::resource::getenv_string;

constexpr const char* schema_variable = "VELK_AMESP_INP_SCHEMA_YAML";

std::string variable_value(const char* name) {
    std::string value;
    velk::input::amesp::append_printable(value, getenv_string(name));
    return value;
}

std::string places_searched() {
    const std::string variable = variable_value(schema_variable);
    const std::string data_home = variable_value("XDG_DATA_HOME");
    const std::string data_dirs = variable_value("XDG_DATA_DIRS");
    std::string text = "no schema found; looked for\n";
    text += "  the file named by VELK_AMESP_INP_SCHEMA_YAML (";
    text += variable.empty() ? "not set" : "'" + variable + "' is no regular file";
    text += ")\n  velk/schemas/input/amesp.yaml in ";
    text += data_home.empty() ? variable_value("HOME") + "/.local/share" : data_home;
    text += "\n  share/velk/schemas/input/amesp.yaml of the installation\n  velk/schemas/input/amesp.yaml in ";
    text += data_dirs.empty() ? "/usr/local/share:/usr/share" : data_dirs;
    text += "\nname one with --schema FILE";
    return text;
}

// What the variable names was meant to be used, so that a mistake in it shall not go unseen.
void warn_of_other_than_named(const std::string& used) {
    const std::string named = getenv_string(schema_variable);
    if (!named.empty() && named != used) {
        complain(schema_variable + std::string(" names '") + named +
                 "', which is no regular file; the schema in use is '" + used + "'");
    }
}

}  // namespace

std::string find_schema(const SchemaOptions& options) {
    std::string path = options.path;
    if (path.empty()) {
        path = velk::input::amesp::resolve_schema_path("");
        if (path.empty()) {
            throw ErrorInLines(places_searched());
        }
        warn_of_other_than_named(path);
    }
    if (options.verbose) {
        complain("schema: " + path);
    }
    return path;
}

InputSchema load_schema_file(const std::string& path) {
    try {
        return InputSchema::from_file(path);
    } catch (const std::runtime_error& error) {
        if (std::string_view(error.what()).ends_with(std::bad_alloc().what())) {
            throw std::bad_alloc();
        }
        throw;
    }
}

}  // namespace amesp_inp
