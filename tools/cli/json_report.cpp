// Findings as JSON.
#include "json_report.hpp"

#include <nlohmann/json.hpp>

namespace amesp_inp {
namespace {

using Json = nlohmann::ordered_json;

Json range_of(const SourceLocation& location) {
    return {{"start", {{"line", location.line}, {"column", location.column}}},
            {"end", {{"line", location.line}, {"column", location.column + location.length}}}};
}

Json json_of(const Finding& finding) {
    Json notes = Json::array();
    for (const Note& note : finding.notes) {
        notes.push_back({{"message", note.message}, {"range", range_of(note.location)}});
    }
    return {{"severity", finding.severity == IssueSeverity::Error ? "error" : "warning"},
            {"code", finding.code},
            {"message", finding.message},
            {"range", range_of(finding.location)},
            {"notes", std::move(notes)},
            {"help", finding.helps}};
}

}  // namespace

std::string json_report(const FileFindings& file) {
    Json findings = Json::array();
    for (const Finding& finding : file.findings) {
        findings.push_back(json_of(finding));
    }
    const Json json = {{"file", file.name},
                       {"error", file.error.empty() ? Json(nullptr) : Json(file.error)},
                       {"findings", std::move(findings)}};
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace amesp_inp
