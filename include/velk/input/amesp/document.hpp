// The records of one AMESP input file, the parser's switches and its result.
//
// All records are plain values that own their text: copying one copies everything, no record points into another,
// and no encoding is assumed (every byte of 128 and above passes through unchanged).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// Where a construct stood in the text it was read from. Lines and columns count from 1, columns in bytes.
struct SourceLocation {
    std::uint64_t line = 0;
    std::uint64_t column = 0;  // in the line as written, indentation included
    std::uint64_t length = 0;  // bytes of the token, or of the line without surrounding white space; 0 for a warning

    bool operator==(const SourceLocation&) const = default;
};

// How the body of a section is read and written.
enum class SectionParseMode : std::int32_t {
    key_value = 0,              // one entry a line: "key value" or "key = value"
    cartesian_coordinates = 1,  // one atom a line: symbol, x, y, z
    raw = 2,                    // lines kept as written
};

// In all records below, `location` is present on what the parser made from text and absent on what the editor made.

// One '%' line.
struct Directive {
    std::string name;   // canonical
    std::string value;  // trimmed; empty when there is none
    bool known = false;
    std::optional<SourceLocation> location;

    bool operator==(const Directive&) const = default;
};

// One word of a '!' line.
struct MethodToken {
    std::string text;       // as written
    std::string canonical;  // as the schema spells it
    std::string category;   // "other" when the schema does not know the token
    bool known = false;
    std::optional<SourceLocation> location;

    bool operator==(const MethodToken&) const = default;
};

// One line of a key-value section.
struct SectionEntry {
    std::string key;    // canonical within its section
    std::string value;  // trimmed; may be empty
    bool known = false;
    std::string raw_line;  // the line as written; empty on an entry that the editor made
    std::optional<SourceLocation> location;

    bool operator==(const SectionEntry&) const = default;
};

// One line of a Cartesian section. Coordinates are in the unit of the input; nothing is converted.
struct AtomRecord {
    std::string symbol;  // element symbol or atom label, as written
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::string raw_line;  // the line as written
    std::optional<SourceLocation> location;

    bool operator==(const AtomRecord&) const = default;
};

// One '>' section with its body. Its closing "end" is not stored; the renderer writes it again.
struct Section {
    std::string name;                    // canonical
    std::vector<std::string> arguments;  // the words of the header after the name
    SectionParseMode parse_mode = SectionParseMode::raw;
    bool known = false;
    bool terminated = true;                    // the closing "end" was there
    std::optional<std::int32_t> charge;        // of a section named "xyz" whose header has at least two arguments
    std::optional<std::int32_t> multiplicity;  // likewise
    std::vector<SectionEntry> entries;
    std::vector<AtomRecord> atoms;
    std::vector<std::string> raw_lines;  // body lines that became neither entry nor atom, as written, in order
    std::optional<SourceLocation> location;

    // The first entry whose key equals `key`, ignoring ASCII case and surrounding white space; null if there is none.
    // Aliases are not resolved. Valid until `entries` changes. Linear in the number of entries; does not allocate.
    VELK_AMESP_INP_EXPORT const SectionEntry* find_entry(std::string_view key) const;
    VELK_AMESP_INP_EXPORT SectionEntry* find_entry(std::string_view key);

    bool operator==(const Section&) const = default;
};

// Something that the parser kept or dropped without understanding it, or a finding copied from validation.
struct ParseWarning {
    std::string code;  // stable, such as "amesp.loose_line"
    std::string message;
    std::optional<SourceLocation> location;  // of the parser's own: the line, column 1, length 0

    bool operator==(const ParseWarning&) const = default;
};

// A parsed input file.
struct AIPData {
    std::vector<std::string> header_comments;  // comment lines before the first content, as written
    std::vector<Directive> directives;
    std::vector<MethodToken> method_tokens;  // of all '!' lines together
    std::vector<Section> sections;
    std::vector<std::string> preserved_lines;  // later comments and lines outside every construct, as written
    std::vector<ParseWarning> warnings;        // the parser's in the order raised, then those of validation

    // The first record whose name equals `name`, ignoring ASCII case and surrounding white space; null if there is
    // none. Aliases are not resolved. Valid until the list changes. Linear in the list; does not allocate.
    VELK_AMESP_INP_EXPORT const Directive* find_directive(std::string_view name) const;
    VELK_AMESP_INP_EXPORT Directive* find_directive(std::string_view name);
    VELK_AMESP_INP_EXPORT const Section* find_section(std::string_view name) const;
    VELK_AMESP_INP_EXPORT Section* find_section(std::string_view name);

    // The first section named "xyz" or "zmat", compared in the same way; null if there is none.
    VELK_AMESP_INP_EXPORT const Section* coordinate_section() const;
    VELK_AMESP_INP_EXPORT Section* coordinate_section();

    bool operator==(const AIPData&) const = default;
};

// The parser's switches.
struct ParseOptions {
    // Keep what the schema does not know: directives, tokens, entries, sections, lines outside every construct and
    // blank lines inside sections. When false they are left out of the document; warnings are raised all the same.
    bool preserve_unknown = true;
    // Check the document against the schema and fold the findings into the result.
    bool validate = false;

    bool operator==(const ParseOptions&) const = default;
};

// What a parse returns.
struct ParseResult {
    AIPData data;       // empty when the file could not be read
    bool ok = false;    // the text was parsed and validation, if it ran, found no error
    std::string error;  // why `ok` is false; empty otherwise

    bool operator==(const ParseResult&) const = default;
};

}  // namespace velk::input::amesp
