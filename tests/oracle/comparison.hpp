// Puts one text, one sequence of edits, or one schema to the library and to the model, and says where they differ.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <velk/input/amesp/schema_tables.hpp>

namespace velk::oracle {

using Tables = input::amesp::InputSchema::Impl;
using TablesHandle = std::shared_ptr<const Tables>;

// Parsing in all its modes, format detection, validation and rendering under the schema and under another one, and
// parsing what was rendered. Empty when library and model agree.
std::string difference_in_reading(const std::string& text, const TablesHandle& tables, const TablesHandle& other);

// A random sequence of edits, the same for the same seed, on what `text` holds under the first schema, by an editor
// that works with the second one.
std::string difference_in_editing(const std::string& text, const TablesHandle& tables, const TablesHandle& other,
                                  std::uint64_t seed);

// Reading `yaml` as a schema.
std::string difference_in_loading(const std::string& yaml);

// A shorter text that `differs` still holds for.
std::string shrunk(std::string text, const std::function<bool(const std::string&)>& differs);

}  // namespace velk::oracle
