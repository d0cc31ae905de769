// What is left of a document when the unknown is dropped.
#pragma once

#include <velk/input/amesp/document.hpp>

namespace velk::fuzz {

// The document as a parse that does not preserve the unknown gives it; without warnings, of which such a parse may
// raise fewer.
input::amesp::AIPData known_part(input::amesp::AIPData data);

}  // namespace velk::fuzz
