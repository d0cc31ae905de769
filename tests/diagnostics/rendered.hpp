// Everything that a finding says, as text that a test can show.
#pragma once

#include <string>
#include <string_view>

#include <velk/input/amesp/diagnostics.hpp>

namespace velk::input::amesp {

inline std::string rendered_place(const std::optional<TextRange>& range) {
    return std::to_string(range->start.line) + ":" + std::to_string(range->start.column) + "+" +
           std::to_string(range->length);
}

// Of each finding a line "SEVERITY CODE LINE:COLUMN+LENGTH MESSAGE", then indented what belongs to it; a fix with the
// text that it gives. Codes without "amesp." and "amesp-inp.".
inline std::string rendered(std::string_view text, const Diagnosis& diagnosis) {
    const auto short_code = [](std::string_view code) { return std::string(code.substr(code.find('.') + 1)); };
    std::string shown;
    for (const Diagnostic& diagnostic : diagnosis.diagnostics) {
        shown += diagnostic.severity == Severity::error     ? "error "
                 : diagnostic.severity == Severity::warning ? "warning "
                                                            : "note ";
        shown += short_code(diagnostic.code) + " " + rendered_place(diagnostic.range) + " " + diagnostic.message + "\n";
        for (const Related& related : diagnostic.related) {
            shown += "  related " + rendered_place(related.range) + " " + related.message + "\n";
        }
        for (const std::string& help : diagnostic.help) {
            shown += "  help " + help + "\n";
        }
        for (const Fix& fix : diagnostic.fixes) {
            shown += std::string("  ") + (fix.applicability == Applicability::certain ? "certain " : "likely ") +
                     fix.title + "\n" + apply(text, fix.edits) + "\n";
        }
        for (const Cause& cause : diagnostic.causes) {
            shown += "  cause " + short_code(cause.code) + " " + rendered_place(cause.range) + "\n";
        }
    }
    return shown;
}

inline std::string rendered(std::string_view text, const SchemaSource& schema) {
    return rendered(text, diagnose(text, schema));
}

}  // namespace velk::input::amesp
