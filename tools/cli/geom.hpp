// amesp-inp geom.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "edit_output.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct GeomOptions {
    std::string path;
    SchemaOptions schema;
    std::string to_xyz;  // one of these two is given
    std::string from_xyz;
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
    EditOutput output;
};

// The exit status.
int run_geom(const GeomOptions& options);

}  // namespace amesp_inp
