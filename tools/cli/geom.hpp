// amesp-inp geom.
#pragma once

#include <string>

#include "edit_output.hpp"
#include "geometry.hpp"
#include "schema_source.hpp"

namespace amesp_inp {

struct GeomOptions {
    std::string path;
    SchemaOptions schema;
    std::string to_xyz;  // one of these two is given
    std::string from_xyz;
    GeometryOptions geometry;  // of that one
    EditOutput output;
};

// The exit status.
int run_geom(const GeomOptions& options);

}  // namespace amesp_inp
