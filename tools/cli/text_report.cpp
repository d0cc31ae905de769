// Findings as text.
#include "text_report.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "printable.hpp"
#include "source_lines.hpp"

namespace amesp_inp {
namespace {

constexpr std::size_t number_width = 5;
constexpr std::size_t longest_excerpt = 160;  // of a longer line, the part around the finding
constexpr std::size_t context_before = 60;

struct Style {
    const char* bold = "";
    const char* error = "";
    const char* warning = "";
    const char* note = "";
    const char* marker = "";
    const char* reset = "";
};

constexpr Style plain_style{};
constexpr Style color_style{"\033[1m", "\033[1;31m", "\033[1;35m", "\033[1;36m", "\033[1;32m", "\033[0m"};

// Whether a byte begins a character: in UTF-8 the other bytes of one take no room of their own.
bool is_shown(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

// `at`, or the byte before it where the character begins that it is in.
std::size_t character_start(std::string_view line, std::size_t at) {
    constexpr std::size_t longest_character = 4;
    for (std::size_t start = at; start < line.size() && at - start < longest_character; --start) {
        if (is_shown(line[start])) {
            return start;
        }
    }
    return at;
}

std::string printable(std::string_view text) {
    std::string result;
    append_printable(result, text, Layout::tabs);
    return result;
}

class Report {
public:
    Report(const FileFindings& file, bool color)
        : file_(file), lines_(file.text), style_(color ? color_style : plain_style) {}

    std::string run() {
        for (const Finding& finding : file_.findings) {
            const bool is_error = finding.severity == IssueSeverity::Error;
            add_head(finding.location, is_error ? style_.error : style_.warning, is_error ? "error" : "warning",
                     finding.message, " [" + finding.code + "]");
            add_excerpt(finding.location);
            for (const std::string& help : finding.helps) {
                add_help(help);
            }
            for (const Note& note : finding.notes) {
                add_head(note.location, style_.note, "note", note.message, "");
                add_excerpt(note.location);
            }
        }
        return std::move(out_);
    }

private:
    void add_head(const SourceLocation& location, const char* kind_style, const char* kind, const std::string& message,
                  const std::string& code) {
        out_ += style_.bold;
        append_printable(out_, file_.name);
        if (location.line > 0) {
            out_ += ":" + std::to_string(location.line) + ":" + std::to_string(location.column);
        }
        out_ += ": ";
        out_ += style_.reset;
        out_ += kind_style;
        out_ += kind;
        out_ += ": ";
        out_ += style_.reset;
        append_printable(out_, message);
        out_ += code;
        out_ += '\n';
    }

    void add_margin(const std::string& label) {
        out_.append(label.size() < number_width ? number_width - label.size() : 0, ' ');
        out_ += label;
        out_ += " | ";
    }

    void add_excerpt(const SourceLocation& location) {
        const std::string_view line = lines_.line(location.line);
        if (line.empty()) {
            return;
        }
        const std::size_t column = std::min<std::size_t>(location.column - 1, line.size());
        const bool whole = line.size() <= longest_excerpt;
        const std::size_t begin = whole || column < context_before ? 0 : character_start(line, column - context_before);
        const std::size_t end = whole ? line.size() : character_start(line, begin + longest_excerpt);
        const std::string_view shown = line.substr(begin, end - begin);
        const char* const before = begin == 0 ? "" : "...";
        const std::string number = std::to_string(location.line);
        add_margin(number);
        out_ += before;
        out_ += printable(shown);
        out_ += begin + shown.size() < line.size() ? "...\n" : "\n";

        add_margin(std::string(number.size(), ' '));
        out_.append(begin == 0 ? 0 : 3, ' ');
        for (const char c : printable(shown.substr(0, column - begin))) {
            out_.append(is_shown(c) ? 1 : 0, c == '\t' ? '\t' : ' ');
        }
        const std::string marked = printable(shown.substr(std::min(shown.size(), column - begin), location.length));
        const auto length = static_cast<std::size_t>(std::count_if(marked.begin(), marked.end(), is_shown));
        out_ += style_.marker;
        out_ += '^';
        out_.append(length > 1 ? length - 1 : 0, '~');
        out_ += style_.reset;
        out_ += '\n';
    }

    void add_help(const std::string& help) {
        out_.append(number_width + 1, ' ');
        out_ += "= help: ";
        append_printable(out_, help);
        out_ += '\n';
    }

    const FileFindings& file_;
    const SourceLines lines_;
    const Style& style_;
    std::string out_;
};

}  // namespace

std::string text_report(const FileFindings& file, bool color) {
    return file.findings.empty() ? std::string() : Report(file, color).run();
}

bool use_color(const std::string& when, int descriptor) {
    if (when != "auto") {
        return when == "always";
    }
    const char* const no_color = std::getenv("NO_COLOR");
    return (no_color == nullptr || *no_color == '\0') && ::isatty(descriptor) == 1;
}

}  // namespace amesp_inp
