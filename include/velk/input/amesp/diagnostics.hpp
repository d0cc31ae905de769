// Everything there is to tell a user about an input, with its places, what helps, and how to fix it. Nothing is
// printed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/export.hpp>
#include <velk/input/amesp/positions.hpp>
#include <velk/input/amesp/schema_source.hpp>
#include <velk/input/amesp/text_edit.hpp>
#include <velk/input/amesp/validation.hpp>

namespace velk::input::amesp {

constexpr Severity to_severity(IssueSeverity severity) noexcept {
    return severity == IssueSeverity::Error ? Severity::error : Severity::warning;
}

// Bytes of a text. Lines and columns count from 1, columns in bytes; `end` is the place after the last byte.
struct TextRange {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    Position start;
    Position end;

    bool operator==(const TextRange&) const = default;
};

// A further place that explains a finding.
struct Related {
    std::string message;
    std::optional<TextRange> range;
    std::string file;  // empty for the text itself

    bool operator==(const Related&) const = default;
};

enum class Applicability : std::int32_t {
    certain = 0,  // what was meant is beyond doubt
    likely = 1,   // what was meant is probable: for a person to look at
};

// Edits of the text, to be made together.
struct Fix {
    std::string title;
    Applicability applicability = Applicability::certain;
    std::vector<TextEdit> edits;

    bool operator==(const Fix&) const = default;
};

// What a finding speaks of.
struct Subject {
    std::string kind;     // "document", "directive", "token", "section", "entry" or "line"
    std::string section;  // canonical; around an entry
    std::string name;     // canonical

    bool operator==(const Subject&) const = default;
};

// A finding that was folded into another one, which is its cause.
struct Cause {
    std::string_view code;
    Severity severity = Severity::error;
    std::string message;
    std::optional<TextRange> range;

    bool operator==(const Cause&) const = default;
};

struct Diagnostic {
    Severity severity = Severity::warning;
    std::string_view code;  // of the table in <velk/input/amesp/codes.hpp>
    std::string message;
    std::optional<TextRange> range;  // absent where no text was given
    Subject subject;
    std::vector<Related> related;
    std::vector<std::string> help;  // one sentence each
    std::vector<Fix> fixes;         // each by itself; the first is the best
    std::vector<Cause> causes;

    bool operator==(const Diagnostic&) const = default;
};

struct DiagnoseOptions {
    // Of each code so many are listed, the rest only counted; 0 lists all.
    std::uint64_t limit_per_code = 0;
};

struct Diagnosis {
    AIPData document;                     // as read from the text, whatever the schema does not know preserved
    std::vector<Diagnostic> diagnostics;  // by place; at one place in the order in which they were found
    std::uint64_t suppressed = 0;
    std::uint64_t omitted = 0;  // beyond the limit of their code
};

// All findings of parser and rules, each fact once. What a rule gives no place gets one: a missing method line the
// first line of content, a section too many its header, what is missing otherwise the last line. Throws nothing but
// std::bad_alloc; any number of threads may call it with one schema. Time and memory are in proportion to the text and
// to what is found.
VELK_AMESP_INP_EXPORT Diagnosis diagnose(std::string_view text, const SchemaSource& schema,
                                         const DiagnoseOptions& options = {});
// The same for a document that no text belongs to: what the rules find, without places and fixes, in their order.
VELK_AMESP_INP_EXPORT Diagnosis diagnose(AIPData document, const SchemaSource& schema,
                                         const DiagnoseOptions& options = {});

// An issue as a diagnostic, its place taken from its location in the text.
VELK_AMESP_INP_EXPORT Diagnostic to_diagnostic(const ValidationIssue& issue, const TextPositions& text);

struct FixResult {
    std::string text;
    std::vector<TextEdit> edits;      // against the original text
    std::vector<Diagnostic> applied;  // in the order in which they were fixed, each with the fix taken alone
    Diagnosis remaining;              // of the fixed text
};

// Makes all fixes of that applicability or a better one, the first by place where two of them overlap, then again for
// what has come to light, at most ten times. An "end" goes before all else, since what is read depends on it.
// Every byte that no fix concerns stays as it is; a text that needs none comes back as it is.
VELK_AMESP_INP_EXPORT FixResult fix_all(std::string_view text, const SchemaSource& schema,
                                        Applicability up_to = Applicability::certain,
                                        const DiagnoseOptions& options = {});

// For the name of something, the help "did you mean 'A' or 'B'?" with the nearest of the known names; empty when none
// is near.
VELK_AMESP_INP_EXPORT std::string near_names(std::string_view name, const std::vector<std::string>& known);

}  // namespace velk::input::amesp
