// What single lines read as: the test that every written line has to pass.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp::overlay {

// Each is nothing when the text is more or less than the one record asked for.
std::optional<Directive> read_directive(std::string_view line, const InputSchema& schema);
std::optional<MethodToken> read_method_token(std::string_view token, const InputSchema& schema);
// The open section under a header line, with one body line or none.
std::optional<Section> read_section(std::string_view header, std::string_view body_line, const InputSchema& schema);
std::optional<Section> read_header(std::string_view header, const InputSchema& schema);

}  // namespace velk::input::amesp::overlay
