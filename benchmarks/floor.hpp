// The floor: kernels that do the least work that the result demands, written plainly with the standard library, for
// texts that hold no surprises. Their results equal the library's, which is checked before anything is measured.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/schema_tables.hpp>

namespace velk::bench {

// What the schema says of names, with one look-up a name: aliases are already resolved.
struct FloorNames {
    struct Entry {
        std::string_view canonical;
        const input::amesp::ValueSpec* spec = nullptr;
    };
    struct Token {
        std::string_view canonical;
        std::string_view category;
    };
    struct Section {
        std::string_view canonical;
        input::amesp::SectionParseMode mode = input::amesp::SectionParseMode::raw;
        std::unordered_map<std::string_view, Entry> entries;
    };
    std::unordered_map<std::string_view, Entry> directives;
    std::unordered_map<std::string_view, Token> tokens;
    std::unordered_map<std::string_view, Section> sections;
};

// Views of the tables, which must outlive it.
FloorNames floor_names(const input::amesp::InputSchema::Impl& tables);

// The document of a well-formed text whose names are all known.
input::amesp::AIPData floor_parse(std::string_view text, const FloorNames& names);

// Text in a buffer that was made once in the size needed and not filled beforehand.
struct FloorText {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    std::string_view view() const noexcept { return {bytes.get(), size}; }
};

// The document as text, coordinates by std::to_chars with ten decimals. Coordinates lie below a million; directives
// and method line, sections of atoms or entries, and header comments, all in canonical spelling.
FloorText floor_render(const input::amesp::AIPData& data);

// One look-up for each name, each value read as its kind and held against its bounds: how many are not as the schema
// says.
std::size_t floor_validate(const input::amesp::AIPData& data, const FloorNames& names);

// All bytes of a file.
FloorText floor_read_file(const char* path);

}  // namespace velk::bench
