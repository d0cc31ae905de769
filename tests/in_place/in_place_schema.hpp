// The schema of the tests that edit texts in place.
#pragma once

#include <velk/input/amesp/schema.hpp>

namespace velk::test {

inline const input::amesp::InputSchema& in_place_schema() {
    static const auto schema = input::amesp::InputSchema::from_yaml(R"(
directives:
  maxcore: {value_type: integer, aliases: [memory]}
  nprocs: {value_type: integer}
  title: {}
method_tokens:
  hf: {category: method}
  b3lyp: {category: method, aliases: [b3-lyp]}
  sto-3g: {category: basis}
  opt: {category: task}
  freq: {category: task}
sections:
  xyz: {parse_mode: cartesian_coordinates, aliases: [geometry]}
  zmat: {parse_mode: raw}
  scf:
    parse_mode: key_value
    entries:
      maxcyc: {value_type: integer, aliases: [maxiter]}
      conv: {value_type: real}
      guess: {}
      note: {}
  opt: {parse_mode: key_value, entries: {conv: {}}}
  notes: {parse_mode: raw}
)");
    return schema;
}

}  // namespace velk::test
