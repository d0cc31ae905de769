// The schema: what is known of AMESP keywords, how they are spelled and which values they take.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/export.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp {

// A handle to immutable tables. Copies are cheap and share the tables, which live as long as the last handle; any
// number of threads may query one schema at once.
//
// Every name given to a query is trimmed and lower-cased (ASCII only) before it is looked up. Queries never fail: an
// unknown name yields its normalised spelling, false, "other" or `SectionParseMode::raw`. They throw nothing but
// std::bad_alloc and cost one or two hash look-ups (a method-line token: one or two for each prefix that fits it).
class InputSchema {
public:
    struct Impl;  // the tables, in <velk/input/amesp/schema_tables.hpp>

    VELK_AMESP_INP_EXPORT InputSchema();                                             // knows nothing
    VELK_AMESP_INP_EXPORT explicit InputSchema(std::shared_ptr<const Impl> tables);  // null: knows nothing

    // Moving copies the handle as well, so that no schema is ever without tables.
    InputSchema(const InputSchema&) = default;
    InputSchema& operator=(const InputSchema&) = default;
    ~InputSchema() = default;

    // Reads a schema from YAML text. Empty or blank text gives an empty schema. Throws std::runtime_error, beginning
    // "failed to parse AMESP input schema YAML: ", for text that is not YAML or forces an impossible conversion;
    // keys that are unknown or of the wrong shape are skipped.
    VELK_AMESP_INP_EXPORT static InputSchema from_yaml(std::string_view text);
    // The same for a file. Throws std::runtime_error, beginning "failed to load AMESP input schema '".
    VELK_AMESP_INP_EXPORT static InputSchema from_file(const std::string& path);

    // True when no directive, no method-line token and no section is known; prefixes and aliases do not count.
    VELK_AMESP_INP_EXPORT bool empty() const;

    // The canonical spelling: what an alias stands for, else the name itself, normalised. Says nothing of whether the
    // name is known.
    VELK_AMESP_INP_EXPORT std::string canonical_directive(std::string_view name) const;
    VELK_AMESP_INP_EXPORT std::string canonical_section(std::string_view name) const;
    VELK_AMESP_INP_EXPORT std::string canonical_method_token(std::string_view token) const;
    VELK_AMESP_INP_EXPORT std::string canonical_entry(std::string_view section, std::string_view entry) const;

    // The category of a token, or of the prefix it is written with; "other" when it is not known.
    VELK_AMESP_INP_EXPORT std::string method_token_category(std::string_view token) const;

    VELK_AMESP_INP_EXPORT bool is_known_directive(std::string_view name) const;
    VELK_AMESP_INP_EXPORT bool is_known_section(std::string_view name) const;
    VELK_AMESP_INP_EXPORT bool is_known_method_token(std::string_view token) const;
    VELK_AMESP_INP_EXPORT bool is_known_entry(std::string_view section, std::string_view entry) const;

    VELK_AMESP_INP_EXPORT SectionParseMode section_parse_mode(std::string_view name) const;

    // All canonical names in ascending byte order; aliases and prefixed forms are not listed.
    VELK_AMESP_INP_EXPORT std::vector<std::string> known_directives() const;
    VELK_AMESP_INP_EXPORT std::vector<std::string> known_sections() const;
    VELK_AMESP_INP_EXPORT std::vector<std::string> known_method_tokens() const;

    // Every breach of the schema's rules in `data`, in a fixed order: the method line, directives, tokens, sections
    // with their entries, the geometry, then the section specifications in the order of the schema. A pure function;
    // its time is proportional to the document and the issues found.
    VELK_AMESP_INP_EXPORT std::vector<ValidationIssue> validate(const AIPData& data) const;

    // The tables themselves, for callers that list values, aliases or bounds. Valid as long as this handle or a copy.
    const Impl& tables() const noexcept { return *tables_; }

private:
    friend class DocumentCheck;
    struct DocumentRules;

    std::shared_ptr<const Impl> tables_;          // never null
    std::shared_ptr<const DocumentRules> rules_;  // drawn from the tables; never null
};

// The path of the schema file: the environment variable VELK_AMESP_INP_SCHEMA_YAML if it names a regular file, else
// what velk::core::resource::locate_file finds for "schemas/input/amesp.yaml" with `hint`; empty if there is none.
VELK_AMESP_INP_EXPORT std::string resolve_schema_path(const std::string& hint);

// The schema of the whole process, loaded from `resolve_schema_path("")` on the first call, from whichever thread;
// empty when no file is found. Throws as `InputSchema::from_file` does, and then tries again on the next call. The
// reference is valid until the process ends.
VELK_AMESP_INP_EXPORT const InputSchema& default_schema();

}  // namespace velk::input::amesp
