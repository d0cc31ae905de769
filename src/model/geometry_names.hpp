// The names of the sections that hold a geometry: the only names that are not the schema's business.
#pragma once

#include <string_view>

namespace velk::input::amesp {

inline constexpr std::string_view xyz_section = "xyz";    // Cartesian; its header holds charge and multiplicity
inline constexpr std::string_view zmat_section = "zmat";  // internal coordinates

constexpr bool is_geometry_section(std::string_view canonical_name) noexcept {
    return canonical_name == xyz_section || canonical_name == zmat_section;
}

}  // namespace velk::input::amesp
