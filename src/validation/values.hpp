// The check of one value against its specification.
#pragma once

#include <string>
#include <vector>

#include <velk/input/amesp/schema_tables.hpp>

#include "validation/issues.hpp"

namespace velk::input::amesp {

// What is wrong with the value of `subject`; empty when nothing is. Types without a rule accept every value.
std::vector<ValidationIssue> check_value(const ValueSpec& spec, const std::string& value,
                                         const issues::Subject& subject, const issues::Location& location);

}  // namespace velk::input::amesp
