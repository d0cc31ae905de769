// Records as the schema spells them: the one place where records of a document are born, for parser and editor alike.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "schema/queries.hpp"

namespace velk::input::amesp::records {

// All names are made canonical and all values are trimmed; nothing has a location unless it is given.

Directive make_directive(const InputSchema& schema, std::string_view name, std::string_view value);

// The text of the token is kept as written, without surrounding white space.
MethodToken make_method_token(const InputSchema& schema, std::string_view text);

// An empty, terminated section; the arguments are kept as given.
Section make_section(const InputSchema& schema, std::string_view name, std::vector<std::string> arguments);
Section make_section(const queries::Match<SectionSpec>& match, std::vector<std::string> arguments);

// `section` is what the schema says of the section that shall hold the entry; null when it does not know it.
SectionEntry make_entry(const SectionSpec* section, std::string_view key, std::string_view value,
                        std::string_view raw_line = {}, const std::optional<SourceLocation>& location = std::nullopt);

}  // namespace velk::input::amesp::records
