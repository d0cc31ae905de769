// Keys: how the command line names what an input file holds. The one place that knows how they are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

enum class KeyKind {
    directive,       // %NAME
    tokens,          // !
    token_category,  // !NAME, of a category of the schema; "other" are the tokens that it does not know
    token,           // !NAME, else
    section,         // >NAME
    entry,           // >NAME.ENTRY
    charge,          // >NAME.charge; this and the next two only where the section is not read as entries
    multiplicity,    // >NAME.multiplicity
    atoms,           // >NAME.atoms
    raw_lines,       // >NAME.raw, unless the schema has an entry of that name
};

// Names as they were typed, without white space around them.
struct Key {
    KeyKind kind;
    std::string name;
    std::string entry = {};  // of an entry
};

// A key with or without its mark. A name without one means what the schema knows by that name: the name itself goes
// before an alias, and one that is clear in several ways throws std::runtime_error, as does what is no key at all.
// Nothing for a name that says too little without a document.
std::optional<Key> find_key(std::string_view text, const velk::input::amesp::InputSchema& schema);

// The same, and what the schema does not know means what the document of `file` has by that name; never nothing.
Key find_key(std::string_view text, const velk::input::amesp::InputSchema& schema,
             const velk::input::amesp::AIPData& data, const std::string& file);

// A key of a kind that is known from where it stands, so that the mark says nothing new: directive, token, section or
// entry. Also gives the category of tokens that `!NAME` names, and parts of a section for an entry. Throws
// std::runtime_error, which begins with `place`, for a key of another kind.
Key read_key(std::string_view place, KeyKind kind, std::string_view text,
             const velk::input::amesp::InputSchema& schema);

}  // namespace amesp_inp
