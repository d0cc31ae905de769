// amesp-inp explain: what a code means and how to fix its cause.
#include "explain.hpp"

#include <algorithm>
#include <string>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/codes.hpp>

#include "exit_status.hpp"
#include "output.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

const char* name_of(Severity severity) {
    return severity == Severity::error ? "error" : severity == Severity::warning ? "warning" : "note";
}

std::string indented(std::string_view text) {
    std::string result;
    for (std::string_view line; velk::core::text::take_line(text, line);) {
        result += "    ";
        result += line;
        result += '\n';
    }
    return result;
}

std::string explanation(const CodeInfo& info) {
    std::string text(info.code);
    text += " (" + std::string(name_of(info.severity)) + ")\n\n";
    text += std::string(info.meaning) + "\n";
    if (!info.bad_example.empty()) {
        text += "\nBad:\n\n" + indented(info.bad_example) + "\nGood:\n\n" + indented(info.good_example);
    }
    if (!info.schema.empty()) {
        text += "\nWith the schema:\n\n" + indented(info.schema);
    }
    text += "\nTo fix it: " + std::string(info.remedy) + "\n";
    return text;
}

int list_codes() {
    std::size_t width = 0;
    for (const CodeInfo& info : all_codes()) {
        width = std::max(width, info.code.size());
    }
    for (const CodeInfo& info : all_codes()) {
        std::string line(info.code);
        line.append(width + 2 - line.size(), ' ');
        line += name_of(info.severity);
        line.append(width + 11 - line.size(), ' ');
        print(line + std::string(info.meaning) + "\n");
    }
    return exit_clean;
}

int explain_code(std::string code) {
    if (!code.starts_with("amesp")) {
        code = "amesp." + code;
    }
    const CodeInfo* const found = find_code(code);
    if (found == nullptr) {
        complain("unknown code '" + code + "'; 'amesp-inp explain' lists all codes");
        return exit_trouble;
    }
    print(explanation(*found));
    return exit_clean;
}

}  // namespace

int run_explain(const ExplainOptions& options) {
    return options.code.empty() ? list_codes() : explain_code(options.code);
}

}  // namespace amesp_inp
