// Findings as JSON.
#include <velk/input/amesp/report.hpp>

namespace velk::input::amesp {
namespace {

template <class Items, class Write>
std::string list_of(const Items& items, Write write) {
    std::string list = "[";
    for (const auto& item : items) {
        list += list.size() > 1 ? "," : "";
        list += write(item);
    }
    return list + "]";
}

std::string json_of(const Position& position) {
    return "{\"line\":" + std::to_string(position.line) + ",\"column\":" + std::to_string(position.column) + "}";
}

std::string json_of(const std::optional<TextRange>& range) {
    return range ? "{\"start\":" + json_of(range->start) + ",\"end\":" + json_of(range->end) + "}" : "null";
}

std::string json_of(const Related& related) {
    return "{\"message\":" + json_string(related.message) + ",\"range\":" + json_of(related.range) + "}";
}

const char* name_of(Severity severity) {
    return severity == Severity::error ? "\"error\"" : severity == Severity::warning ? "\"warning\"" : "\"note\"";
}

std::string json_of(const TextEdit& edit) {
    return "{\"offset\":" + std::to_string(edit.offset) + ",\"length\":" + std::to_string(edit.length) +
           ",\"text\":" + json_string(edit.text) + "}";
}

std::string json_of(const Fix& fix) {
    return "{\"title\":" + json_string(fix.title) +
           ",\"applicability\":" + (fix.applicability == Applicability::certain ? "\"certain\"" : "\"likely\"") +
           ",\"edits\":" + list_of(fix.edits, [](const TextEdit& edit) { return json_of(edit); }) + "}";
}

std::string json_of(const Cause& cause) {
    std::string json = "{\"severity\":";
    json += name_of(cause.severity);
    json += ",\"code\":" + json_string(cause.code);
    json += ",\"message\":" + json_string(cause.message);
    return json + ",\"range\":" + json_of(cause.range) + "}";
}

std::string json_of(const Diagnostic& finding) {
    std::string json = "{\"severity\":";
    json += name_of(finding.severity);
    json += ",\"code\":" + json_string(finding.code);
    json += ",\"message\":" + json_string(finding.message);
    json += ",\"range\":" + json_of(finding.range);
    json += ",\"notes\":" + list_of(finding.related, [](const Related& related) { return json_of(related); });
    json += ",\"help\":" + list_of(finding.help, json_string);
    json += ",\"fixes\":" + list_of(finding.fixes, [](const Fix& fix) { return json_of(fix); });
    json += ",\"causes\":" + list_of(finding.causes, [](const Cause& cause) { return json_of(cause); });
    return json + "}";
}

}  // namespace

std::string json_report_head(const std::string& schema_path) {
    return R"({"format":"amesp-inp findings","version":2,"schema":)" + json_string(schema_path) + ",\"files\":[";
}

std::string json_report(const FileFindings& file) {
    std::string json = "{\"file\":" + json_string(file.name);
    json += ",\"error\":" + (file.error.empty() ? "null" : json_string(file.error));
    json += ",\"findings\":" + list_of(file.diagnostics, [](const Diagnostic& finding) { return json_of(finding); });
    return json + "}";
}

}  // namespace velk::input::amesp
