// The model of the parser and of format detection.
#pragma once

#include <string>
#include <velk/input/amesp/document.hpp>

#include "oracle/schema_model.hpp"

namespace velk::oracle {

input::amesp::ParseResult parse(const std::string& text, const SchemaModel& schema,
                                const input::amesp::ParseOptions& options);

bool looks_like_amesp_input(const std::string& text);

}  // namespace velk::oracle
