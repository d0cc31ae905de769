// The model of validation.
#pragma once

#include <vector>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/validation.hpp>

#include "oracle/schema_model.hpp"

namespace velk::oracle {

std::vector<input::amesp::ValidationIssue> validate(const input::amesp::AIPData& data, const SchemaModel& schema);

}  // namespace velk::oracle
