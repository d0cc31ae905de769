// Findings as JSON.
#include "json_report.hpp"

#include "json_text.hpp"

namespace amesp_inp {
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

std::string place(std::uint64_t line, std::uint64_t column) {
    return "{\"line\":" + std::to_string(line) + ",\"column\":" + std::to_string(column) + "}";
}

std::string range_of(const SourceLocation& location) {
    return "{\"start\":" + place(location.line, location.column) +
           ",\"end\":" + place(location.line, location.column + location.length) + "}";
}

std::string json_of(const Note& note) {
    return "{\"message\":" + json_string(note.message) + ",\"range\":" + range_of(note.location) + "}";
}

std::string json_of(const Finding& finding) {
    std::string json = "{\"severity\":";
    json += finding.severity == IssueSeverity::Error ? "\"error\"" : "\"warning\"";
    json += ",\"code\":" + json_string(finding.code);
    json += ",\"message\":" + json_string(finding.message);
    json += ",\"range\":" + range_of(finding.location);
    json += ",\"notes\":" + list_of(finding.notes, [](const Note& note) { return json_of(note); });
    json += ",\"help\":" + list_of(finding.helps, json_string);
    return json + "}";
}

}  // namespace

std::string json_report_head(const std::string& schema_path) {
    return R"({"format":"amesp-inp findings","version":1,"schema":)" + json_string(schema_path) + ",\"files\":[";
}

std::string json_report(const FileFindings& file) {
    std::string json = "{\"file\":" + json_string(file.name);
    json += ",\"error\":" + (file.error.empty() ? "null" : json_string(file.error));
    json += ",\"findings\":" + list_of(file.findings, [](const Finding& finding) { return json_of(finding); });
    return json + "}";
}

}  // namespace amesp_inp
