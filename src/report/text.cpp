// Findings as text.
#include <velk/input/amesp/report.hpp>

#include <algorithm>
#include <cstddef>

namespace velk::input::amesp {
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
        for (const Diagnostic& diagnostic : file_.diagnostics) {
            const Kind kind = kind_of(diagnostic.severity);
            add_head(diagnostic.range, kind, diagnostic.message);
            out_ += " [";
            out_ += diagnostic.code;
            out_ += "]\n";
            add_excerpt(diagnostic.range);
            for (const std::string& help : diagnostic.help) {
                add_help(help);
            }
            for (const Related& related : diagnostic.related) {
                add_head(related.range, {"note", style_.note}, related.message);
                out_ += '\n';
                add_excerpt(related.range);
            }
            for (const Cause& cause : diagnostic.causes) {
                add_head(cause.range, {"note", style_.note}, "from this: " + cause.message);
                out_ += " [";
                out_ += cause.code;
                out_ += "]\n";
            }
        }
        return std::move(out_);
    }

private:
    struct Kind {
        const char* name;
        const char* style;
    };
    Kind kind_of(Severity severity) const {
        switch (severity) {
            case Severity::error:
                return {"error", style_.error};
            case Severity::warning:
                return {"warning", style_.warning};
            case Severity::note:
                break;
        }
        return {"note", style_.note};
    }

    void add_head(const std::optional<TextRange>& range, const Kind& kind, const std::string& message) {
        out_ += style_.bold;
        append_printable(out_, file_.name);
        if (range) {
            out_ += ":" + std::to_string(range->start.line) + ":" + std::to_string(range->start.column);
        }
        out_ += ": ";
        out_ += style_.reset;
        out_ += kind.style;
        out_ += kind.name;
        out_ += ": ";
        out_ += style_.reset;
        append_printable(out_, message);
    }

    void add_margin(const std::string& label) {
        out_.append(label.size() < number_width ? number_width - label.size() : 0, ' ');
        out_ += label;
        out_ += " | ";
    }

    void add_excerpt(const std::optional<TextRange>& range) {
        const std::string_view line = range ? lines_.line(range->start.line) : std::string_view();
        if (line.empty()) {
            return;
        }
        const std::size_t column = std::min<std::size_t>(range->start.column - 1, line.size());
        const bool whole = line.size() <= longest_excerpt;
        const std::size_t begin = whole || column < context_before ? 0 : character_start(line, column - context_before);
        const std::size_t end = whole ? line.size() : character_start(line, begin + longest_excerpt);
        const std::string_view shown = line.substr(begin, end - begin);
        const char* const before = begin == 0 ? "" : "...";
        const std::string number = std::to_string(range->start.line);
        add_margin(number);
        out_ += before;
        out_ += printable(shown);
        out_ += begin + shown.size() < line.size() ? "...\n" : "\n";

        add_margin(std::string(number.size(), ' '));
        out_.append(begin == 0 ? 0 : 3, ' ');
        for (const char c : printable(shown.substr(0, column - begin))) {
            out_.append(is_shown(c) ? 1 : 0, c == '\t' ? '\t' : ' ');
        }
        const std::string marked = printable(shown.substr(std::min(shown.size(), column - begin), range->length));
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
    const TextPositions lines_;
    const Style& style_;
    std::string out_;
};

}  // namespace

std::string text_report(const FileFindings& file, bool color) {
    return file.diagnostics.empty() ? std::string() : Report(file, color).run();
}

}  // namespace velk::input::amesp
