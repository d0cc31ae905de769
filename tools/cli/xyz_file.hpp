// Plain XYZ files: a count, a comment line, one atom a line.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/document.hpp>

namespace amesp_inp {

struct Molecule {
    std::vector<velk::input::amesp::AtomRecord> atoms;  // without source lines and places
    std::optional<std::int32_t> charge;                 // "charge=Q" in the comment line
    std::optional<std::int32_t> multiplicity;           // "multiplicity=M" there
};

// Says what is wrong with an XYZ file, "NAME:LINE:COLUMN: error: MESSAGE".
class XyzError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Words after the fourth of an atom line are ignored; exponents may be written with d. Throws XyzError.
Molecule read_xyz(std::string_view text, const std::string& name);

// Coordinates with ten decimals; charge and multiplicity, where known, in the comment line.
std::string write_xyz(const Molecule& molecule);

}  // namespace amesp_inp
