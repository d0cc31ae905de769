// Changes a document and writes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/export.hpp>
#include <velk/input/amesp/schema.hpp>
#include <velk/input/amesp/text_edit.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp {

// How a document is written into a text.
struct OverlayOptions {
    bool preserve_unknown = true;    // the document was read with that
    bool drop_header_words = false;  // a new geometry does not take over the words after charge and multiplicity
};

// What `AIPEditor::text_edits` returns.
struct TextEdits {
    std::vector<TextEdit> edits;            // sorted, as `apply` takes them
    std::vector<ValidationIssue> problems;  // as those of an `OverlayResult`
};

// What `AIPEditor::render_over` returns.
struct OverlayResult {
    std::string text;
    // Of error severity what was not written: "amesp.not_expressible" for a record that no line reads back as,
    // "amesp.not_of_this_text" for a list that does not go with the text, "amesp.remark_in_method_line" for a new
    // token whose line holds a remark. Without one the text holds the document.
    // Warnings: "amesp.dropped_words" for words of the text that went although no record of the document holds them, or
    // as the remark of a value; "amesp.kept_unit" for a word that stays in the header of a new geometry and names
    // another unit than angstrom, when the atoms are not those of before. What is right then, the caller must know.
    std::vector<ValidationIssue> problems;
};

// Owns a document and shares a schema. One thread at a time may use an editor; its const operations may run
// concurrently with each other.
//
// Names are stored as the schema spells them, values trimmed, `known` flags brought up to date; what is updated keeps
// its place, its location and every field not named, what is added goes to the end of its list and has no location.
// Unknown names are no error. Arguments may refer to the editor's own document. Operations throw nothing but
// std::bad_alloc (and what `write_file` names); an edit that fails leaves the document as it was, unless it says else.
//
// Setters find the record to update by its stored name (`AIPData::find_directive` and its like); removers compare
// what the schema makes of both names, and so also catch records stored under an alias.
class AIPEditor {
public:
    // Takes the document as it is: nothing is normalised until an edit touches it.
    VELK_AMESP_INP_EXPORT AIPEditor(AIPData data, const InputSchema& schema);
    VELK_AMESP_INP_EXPORT void set_data(AIPData data);

    // Valid as long as the editor; what they show changes with every edit.
    const AIPData& data() const noexcept { return data_; }
    const InputSchema& schema() const noexcept { return schema_; }

    // Normalised records that are not yet in the document. A section is empty and terminated; its arguments are kept
    // as given. A blank token gives a record with empty text.
    VELK_AMESP_INP_EXPORT MethodToken make_method_token(std::string token) const;
    VELK_AMESP_INP_EXPORT Section make_section(std::string name, std::vector<std::string> arguments) const;

    // What `InputSchema::validate` finds in the document.
    VELK_AMESP_INP_EXPORT std::vector<ValidationIssue> validate() const;

    // The document as AMESP input text: header comments, directives, one method line, the sections, preserved lines;
    // canonical names, coordinates with 10 decimals, every section closed by "end". Line feeds only, exactly one at
    // the end. The same document and schema always give the same bytes. Validates nothing.
    VELK_AMESP_INP_EXPORT std::string render() const;
    // Renders and replaces the file at `path` atomically. Throws std::runtime_error, beginning "failed to write AMESP
    // input file '", when that fails; the file is then as it was. Once the
    // file holds the new text that is no failure any more, also when its directory cannot be synced.
    VELK_AMESP_INP_EXPORT void write_file(const std::string& path) const;

    // `original` with the differences of the document applied, and every other byte as it was. The document must have
    // been read from that very text, with that `preserve_unknown`; the editor's operations are what may have happened
    // to it since. Without edits the text comes back as it is.
    //
    // - A record is found again by its location, and a token that was set anew by its name. Its line changes in the
    //   bytes of its value alone; the line of a removed record goes, of a removed section all from its header to its
    //   "end", with one of the blank lines around it; of a removed token the word.
    // - A new directive follows the last one, or stands above the method line and the comments right above that; a new
    //   token follows the one before it in the list, a new method line the last directive, or it stands above the first
    //   section and the comments right above that; a new entry follows the last of its section; directive and entry
    //   are laid out as most of their neighbours are. A new section comes last, after a blank line, but before comments
    //   that end the text. A new geometry stands where the first removed one stood, and shares the lines of equal
    //   atoms.
    // - A new token keeps its capitals where the schema only lowers them and a word of its line has some. None is added
    //   to a method line that keeps a word beginning with '#'; it is reported instead.
    // - Other names and values are written as `render` spells them; an entry whose value holds a '=' as "key = value".
    //   Each written line is read back; one that would not give its record is not written but reported, and what the
    //   text had in its place stays. Lists that do not go with the text (locations or lines of another text, another
    //   order,
    //   changed comments or kept lines) are reported, and left alone likewise.
    // - A missing last "end" or line end is added when something has to follow it; the "end" also when the section was
    //   set to be terminated. Added lines end like the line before them.
    // - A new geometry takes over the words after charge and multiplicity in the header of the old one, if that was
    //   "xyz", too; words after the coordinates stay with an atom of the same symbol.
    // - Of an "xyz" section that stays, charge and multiplicity speak when they were changed, else the arguments.
    //
    // Throws nothing but std::bad_alloc. Time and memory are proportional to the text: about one parse and a copy.
    VELK_AMESP_INP_EXPORT OverlayResult render_over(std::string_view original, bool preserve_unknown = true) const;
    VELK_AMESP_INP_EXPORT OverlayResult render_over(std::string_view original, const OverlayOptions& options) const;
    // The edits that `render_over` makes: of a changed line the characters that differ, and of lines that stay none.
    VELK_AMESP_INP_EXPORT TextEdits text_edits(std::string_view original, bool preserve_unknown = true) const;
    VELK_AMESP_INP_EXPORT TextEdits text_edits(std::string_view original, const OverlayOptions& options) const;

    // Updates the first directive of that name or appends one. An empty value is stored as such.
    VELK_AMESP_INP_EXPORT void set_directive(std::string name, std::string value);
    // Removes every directive of that name; says whether there was one.
    VELK_AMESP_INP_EXPORT bool remove_directive(std::string_view name);

    // Appends a token, also one that is there already; a blank one is ignored.
    VELK_AMESP_INP_EXPORT void add_method_token(std::string token);
    // Removes every token that the schema spells like `token`; says whether there was one.
    VELK_AMESP_INP_EXPORT bool remove_method_token(std::string_view token);
    // Replaces all tokens; blank ones are skipped. A failure leaves the tokens appended so far.
    VELK_AMESP_INP_EXPORT void set_method_tokens(const std::vector<std::string>& tokens);

    // Refreshes the first section of that name or appends an empty one. Arguments replace the old ones, except that an
    // empty list keeps them. The reference is valid until the list of sections changes.
    VELK_AMESP_INP_EXPORT Section& upsert_section(std::string name, std::vector<std::string> arguments);
    // Removes every section of that name; says whether there was one.
    VELK_AMESP_INP_EXPORT bool remove_section(std::string_view name);

    // Sets one entry of the first section of that name, adding section and entry as needed. In a section that is not
    // read as key-value lines the entry is stored but not rendered.
    VELK_AMESP_INP_EXPORT void set_section_entry(std::string_view section, std::string key, std::string value);
    // Removes every such entry of the first section of that name; says whether there was one.
    VELK_AMESP_INP_EXPORT bool remove_section_entry(std::string_view section, std::string_view key);

    // Replaces every "xyz" and "zmat" section by one "xyz" section at the end. Nothing is checked; the atoms are
    // stored as given. If memory runs out, the old sections may be gone and the new one not there.
    VELK_AMESP_INP_EXPORT void set_xyz_geometry(std::int32_t charge, std::int32_t multiplicity,
                                                std::vector<AtomRecord> atoms);

private:
    AIPData data_;
    InputSchema schema_;
    // Of each name, after its hash, the first directive; empty until it is needed. A tree: names of one hash take no
    // longer to find.
    std::map<std::pair<std::size_t, std::string>, std::size_t> directive_places_;
};

}  // namespace velk::input::amesp
