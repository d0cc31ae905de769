// Geometries from XYZ files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/xyz.hpp>

namespace amesp_inp {

// What the command line says of a geometry that is read.
struct GeometryOptions {
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
    std::uint64_t frame = velk::input::amesp::XyzOptions::only_frame;
};

struct Geometry {
    std::string name;  // of the file, for messages
    std::vector<velk::input::amesp::AtomRecord> atoms;
    std::optional<std::int32_t> charge;  // these two by an option, or else by the comment line
    std::optional<std::int32_t> multiplicity;
};

// The frame that "last" or a number from 1 on means.
std::optional<std::uint64_t> frame_of(std::string_view text);

// Says on standard error, unless it shall be quiet, what it takes from the comment line. Throws std::runtime_error for
// a file that cannot be read or is no XYZ file, "NAME:LINE:COLUMN: error: MESSAGE".
Geometry read_geometry(const std::string& xyz_path, const GeometryOptions& options, bool quiet);

// Replaces the geometry. Charge and multiplicity, where they are not known, are those of the one that is replaced;
// throws std::runtime_error when there is none.
void set_geometry(velk::input::amesp::AIPEditor& editor, const Geometry& geometry);

}  // namespace amesp_inp
