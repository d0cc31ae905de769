// What the tests of diagnostics share.
#pragma once

#include <string>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

inline const SchemaSource& small_schema() {
    static const SchemaSource schema = InputSchema::from_yaml(R"(
directives:
  maxcore: {value_type: integer, min: 1}
  mem: {value_type: real, max: 10}
  gpu: {value_type: boolean}
  guess: {value_type: enum, allowed: [core, huckel]}
  none: {value_type: enum}
  title: {}
method_tokens:
  hf: {category: method}
  b3lyp: {category: method, aliases: b3-lyp}
  sto-3g: {category: basis}
  d3bj: {category: dispersion}
  opt: {category: task, aliases: optimise}
method_prefixes:
  u: {}
sections:
  xyz: {parse_mode: xyz, allow_multiple: false}
  zmat: {}
  once: {allow_multiple: false}
  scf:
    parse_mode: key_value
    entries:
      maxcyc: {value_type: integer, aliases: maxiter}
      conv: {value_type: real}
)");
    return schema;
}

// "LINE:COLUMN+LENGTH CODE" of each.
inline std::vector<std::string> places_in(const Diagnosis& diagnosis) {
    std::vector<std::string> places;
    for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
        std::string place;
        if (diagnostic.range) {
            place = std::to_string(diagnostic.range->start.line) + ":" +
                    std::to_string(diagnostic.range->start.column) + "+" + std::to_string(diagnostic.range->length) +
                    " ";
        }
        places.push_back(place + std::string(diagnostic.code));
    }
    return places;
}

}  // namespace velk::input::amesp
