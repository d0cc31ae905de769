// What a document holds by a key.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

#include "key.hpp"

namespace amesp_inp {

struct KeyValue {
    enum class Shape { text, words, lines };
    Shape shape;
    std::vector<std::string> parts;  // of a text: one
};

// Of what stands several times under one name the first; nothing when there is none. `text` is what the document was
// read from, with everything unknown kept: a section is given as its lines stand there, from its header to its end.
std::optional<KeyValue> value_of(const Key& key, const velk::input::amesp::AIPData& data,
                                 const velk::input::amesp::InputSchema& schema, std::string_view text);

// Whether `!CATEGORY` means the token.
bool is_of_category(const velk::input::amesp::MethodToken& token, std::string_view category);

}  // namespace amesp_inp
