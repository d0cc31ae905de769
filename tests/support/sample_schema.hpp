// A small schema that most tests of parser, validation and editor share.
#pragma once

#include <velk/input/amesp/schema.hpp>

namespace velk::test {

inline const input::amesp::InputSchema& sample_schema() {
    static const auto schema = input::amesp::InputSchema::from_yaml(R"(
directives:
  maxcyc: {value_type: integer, min: 1, aliases: [maxit]}
  solver: {value_type: enum, allowed: [diis, ediis]}
method_tokens:
  hf: {category: method}
  b3lyp: {category: method, aliases: [b3-lyp]}
  sto-3g: {category: basis}
method_prefixes:
  u: {category: uks}
sections:
  xyz: {parse_mode: cartesian_coordinates, allow_multiple: false, aliases: [geometry]}
  zmat: {parse_mode: raw}
  scf:
    parse_mode: key_value
    aliases: [scfcontrol]
    entries:
      maxcyc: {value_type: integer, min: 1, aliases: [maxiter]}
      conv: {value_type: real, min: 0, max: 1}
      diis: {value_type: boolean}
      note: {}
  notes: {parse_mode: raw}
)");
    return schema;
}

}  // namespace velk::test
