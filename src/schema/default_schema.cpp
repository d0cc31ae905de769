// Where the schema of the process comes from, and its one copy.
#include <velk/core/resource.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {
namespace {

constexpr const char* schema_variable = "VELK_AMESP_INP_SCHEMA_YAML";
constexpr const char* schema_resource = "schemas/input/amesp.yaml";

// The installation's data and the user's and system's data directories; never the working directory.
constexpr std::int32_t schema_search_options = 6;

InputSchema load_default_schema() {
    const std::string path = resolve_schema_path("");
    return path.empty() ? InputSchema() : InputSchema::from_file(path);
}

}  // namespace

std::string resolve_schema_path(const std::string& hint) {
    if (std::string path = core::resource::getenv_string(schema_variable);
        !path.empty() && core::resource::is_regular_file_path(path)) {
        return path;
    }
    return core::resource::locate_file(schema_resource, hint, {}, schema_search_options);
}

const InputSchema& default_schema() {
    static const InputSchema schema = load_default_schema();
    return schema;
}

}  // namespace velk::input::amesp
