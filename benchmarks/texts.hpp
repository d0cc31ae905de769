// The texts that are measured: made by rule from fixed random numbers, the same on every machine and in every run.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <velk/input/amesp/schema.hpp>

namespace velk::bench {

// A schema of 500 names: 20 directives, 200 method-line tokens, 10 sections and 270 entries, 250 of them of section
// "scf"; a fifth of the names with an alias.
const std::string& schema_text();
const input::amesp::InputSchema& schema();

// A document with one method line and one section "xyz" of that many atoms, ten decimals a coordinate.
std::string coordinates_text(std::size_t atoms);

// One line of a key-value section. A word has to be quoted in TOML.
struct Pair {
    std::string key;
    std::string value;
    bool is_word = false;
};

// Pairs that the schema accepts. The first 250 keys differ, then they come again.
std::vector<Pair> pairs(std::size_t count);

// A document with one method line and one section "scf" of these pairs. It lacks a geometry.
std::string entries_text(std::size_t count);

// A document of about one kilobyte with each kind of line: a usual input for a small molecule.
const std::string& small_text();

}  // namespace velk::bench
