// Remarks after values, which the format reads as part of them.
#pragma once

#include <string_view>

#include <velk/input/amesp/schema_tables.hpp>

namespace velk::input::amesp {

bool is_value(const ValueSpec& spec, std::string_view value);

// The value without the remark by which alone it fails; empty where there is none.
std::string_view value_before_remark(const ValueSpec& spec, std::string_view value);

// A remark that is a word or more of the value, and not the first; empty where there is none.
std::string_view remark_after_value(std::string_view value);

}  // namespace velk::input::amesp
