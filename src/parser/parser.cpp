// The parser's public operations on texts and files.
#include <velk/input/amesp/parser.hpp>

#include <algorithm>
#include <exception>
#include <utility>

#include <velk/core/fs.hpp>

#include "parser/reader.hpp"

namespace velk::input::amesp {
namespace {

void fold_issues_in(ParseResult& result, std::vector<ValidationIssue> issues) {
    const auto first_error = std::find_if(issues.begin(), issues.end(), [](const ValidationIssue& issue) {
        return issue.severity == IssueSeverity::Error;
    });
    if (first_error != issues.end()) {
        result.ok = false;
        result.error = first_error->message;
    }
    result.data.warnings.reserve(result.data.warnings.size() + issues.size());
    for (ValidationIssue& issue : issues) {
        result.data.warnings.push_back({std::move(issue.code), std::move(issue.message), issue.location});
    }
}

}  // namespace

ParseResult AIPParser::parse_string(std::string_view text, const InputSchema& schema, const ParseOptions& options) {
    ParseResult result;
    result.data = read_document(text, schema, options.preserve_unknown);
    result.ok = true;
    if (options.validate) {
        fold_issues_in(result, schema.validate(result.data));
    }
    return result;
}

ParseResult AIPParser::parse_file(const std::string& path, const InputSchema& schema, const ParseOptions& options) {
    try {
        return parse_string(core::fs::read_text_file(path), schema, options);
    } catch (const std::exception& error) {
        ParseResult result;
        result.error = "failed to read AMESP input '" + path + "': " + error.what();
        return result;
    }
}

}  // namespace velk::input::amesp
