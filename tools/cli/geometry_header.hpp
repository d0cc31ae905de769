// Charge and multiplicity of the geometry that an input has.
#pragma once

#include <cstdint>
#include <optional>
#include <velk/input/amesp/editor.hpp>

namespace amesp_inp {

// Writes them into the header of the geometry and changes nothing else; what is not given stays. Throws EditRefused
// when there is no geometry, or one of them is neither given nor there.
void set_header(velk::input::amesp::AIPEditor& editor, std::optional<std::int32_t> charge,
                std::optional<std::int32_t> multiplicity);

}  // namespace amesp_inp
