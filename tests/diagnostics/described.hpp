// Findings as text: all that the tests of detectors compare.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/diagnostics.hpp>

#include "diagnostics/diagnosed.hpp"

namespace velk::input::amesp {

inline std::string described(Severity severity) {
    return severity == Severity::error ? "error" : severity == Severity::warning ? "warning" : "note";
}

// "LINE:COLUMN+LENGTH", and the bytes as they stand in the text.
inline std::string described(const TextRange& range, std::string_view text) {
    return std::to_string(range.start.line) + ":" + std::to_string(range.start.column) + "+" +
           std::to_string(range.length) + " '" + std::string(text.substr(range.offset, range.length)) + "'";
}

// The lines that differ, old and new; '|' for a line feed, "\r" for a carriage return.
inline std::string changed_lines(std::string_view before, std::string_view after) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()) && before[i] == after[i]; ++i) {
        begin = before[i] == '\n' ? i + 1 : begin;
    }
    std::size_t tail = 0;
    const std::size_t longest = std::min(before.size(), after.size()) - begin;
    for (std::size_t i = 0; i < longest && before[before.size() - 1 - i] == after[after.size() - 1 - i]; ++i) {
        tail = before[before.size() - 1 - i] == '\n' ? i : tail;
    }
    std::string lines(before.substr(begin, before.size() - tail - begin));
    lines += " -> ";
    lines += after.substr(begin, after.size() - tail - begin);
    std::string shown;
    for (const char c : lines) {
        shown += c == '\n' ? "|" : c == '\r' ? "\\r" : std::string(1, c);
    }
    return shown;
}

// A line for each finding, and below it, indented, one for each related place, help, fix and cause.
inline std::string described(std::string_view text, const SchemaSource& schema = small_schema()) {
    std::string all;
    for (const Diagnostic& each : diagnose(text, schema).diagnostics) {
        all += described(each.severity) + " " + std::string(each.code) + " " + described(*each.range, text) + " " +
               each.message + "\n";
        for (const Related& related : each.related) {
            all += "  see " + described(*related.range, text) + " " + related.message + "\n";
        }
        for (const std::string& help : each.help) {
            all += "  help " + help + "\n";
        }
        for (const Fix& fix : each.fixes) {
            all += std::string(fix.applicability == Applicability::certain ? "  certain " : "  likely ") + fix.title +
                   ": " + changed_lines(text, apply(text, fix.edits)) + "\n";
        }
        for (const Cause& cause : each.causes) {
            all += "  cause " + described(cause.severity) + " " + std::string(cause.code) + " " +
                   std::to_string(cause.range->start.line) + "\n";
        }
    }
    return all;
}

}  // namespace velk::input::amesp
