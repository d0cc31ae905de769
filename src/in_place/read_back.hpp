// What single lines read as: the test that every written line has to pass.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp::in_place {

// The first record of its kind in the text; nothing when there is none. A text that holds more than the record was made
// of a name or a value with a line feed, which the record that is read does not have: comparing them tells.
std::optional<Directive> read_directive(std::string_view line, const InputSchema& schema);
// Nothing also when the token is more than one word.
std::optional<MethodToken> read_method_token(std::string_view token, const InputSchema& schema);
// The open section under a header line, with one body line or none; nothing when that line ends the section.
std::optional<Section> read_section(std::string_view header, std::string_view body_line, const InputSchema& schema);

}  // namespace velk::input::amesp::in_place
