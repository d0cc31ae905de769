// A complete description of documents, results and schemas as text: two are equal when their descriptions are.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::oracle {

// Every field; strings escaped, numbers by their bits.
std::string described(const input::amesp::AIPData& data);
std::string described(const input::amesp::Section& section);
std::string described(const input::amesp::MethodToken& token);
std::string described(const input::amesp::ParseResult& result);
std::string described(const std::vector<input::amesp::ValidationIssue>& issues);
std::string described(const std::vector<std::string>& strings);
std::string described(const input::amesp::InputSchema::Impl& tables);

// A number's bits, as a decimal number.
std::string bits(double value);

// As a literal of C++.
std::string quoted(std::string_view text);

// The first line in which two descriptions differ, both forms; empty when they are equal.
std::string first_difference(const std::string& library, const std::string& model);

}  // namespace velk::oracle
