// Finds where an 'end' was meant, and writes it there.
#include "missing_ends.hpp"

#include <cstddef>
#include <optional>
#include <vector>
#include <velk/core/text_view.hpp>

#include "line_marks.hpp"
#include "source_lines.hpp"

namespace amesp_inp {
namespace {

using velk::core::text::take_word;
using velk::core::text::trim_view;
using velk::input::amesp::InputSchema;

bool is_end(std::string_view text) {
    return text.size() == 3 && (text[0] | ' ') == 'e' && (text[1] | ' ') == 'n' && (text[2] | ' ') == 'd';
}

std::string_view name_in(std::string_view marked) {
    marked.remove_prefix(1);
    return take_word(marked);
}

bool is_header(std::string_view text) {
    return text.starts_with('>') && !name_in(text).empty();
}

// One walk over the lines, as if the ends found so far stood there.
class EndFinder {
public:
    EndFinder(std::string_view text, const InputSchema& schema, Fixes fixes)
        : lines_(text), schema_(schema), fixes_(fixes), reads_well_(lines_.count() + 2, true) {}

    // The numbers of the header and of the line to be followed by its 'end', for each missing one.
    struct MissingEnd {
        std::uint64_t header;
        std::uint64_t last;
    };
    std::vector<MissingEnd> run() {
        find_what_reads_well();
        for (std::uint64_t number = 1; number <= lines_.count(); ++number) {
            read(number, trim_view(lines_.line(number)));
        }
        if (open_ && !swallowed_) {
            missing_.push_back(*open_);
        }
        return std::move(missing_);
    }

    const SourceLines& lines() const { return lines_; }

private:
    // Whether everything from a line on, read outside of sections, has its place up to the next section.
    void find_what_reads_well() {
        for (std::uint64_t number = lines_.count(); number > 0; --number) {
            const std::string_view text = trim_view(lines_.line(number));
            const bool has_place = text.empty() || is_comment(text) || is_marked(text);
            reads_well_[number] = is_header(text) || (has_place && reads_well_[number + 1]);
        }
    }

    void read(std::uint64_t number, std::string_view text) {
        if (open_ && is_marked(text) && !is_meant(number, text)) {
            swallowed_ = true;
            unsure_ = unsure_ || reads_well_[number];
        } else if (open_ && is_marked(text)) {
            missing_.push_back(*open_);
            open_.reset();
        }
        if (open_ && is_end(text)) {
            open_.reset();
        } else if (open_ && belongs_to_section(number, text)) {
            open_->last = number;
        } else if (!open_ && is_header(text)) {
            open_ = MissingEnd{number, number};
            swallowed_ = false;
            unsure_ = false;
        }
    }

    // A comment that is not indented goes with what follows it.
    bool belongs_to_section(std::uint64_t number, std::string_view text) const {
        return !text.empty() && (!is_comment(text) || lines_.line(number).front() != text.front());
    }

    // Whether the line was meant to stand behind the open section.
    bool is_meant(std::uint64_t number, std::string_view text) const {
        if (!reads_well_[number]) {
            return false;
        }
        return fixes_ == Fixes::all ||
               (!unsure_ && schema_.is_known_section(name_in(trim_view(lines_.line(open_->header)))) && is_known(text));
    }

    bool is_known(std::string_view text) const {
        const std::string_view name = name_in(text);
        switch (text.front()) {
            case '%':
                return schema_.is_known_directive(name);
            case '!':
                return schema_.is_known_method_token(name);
            default:
                return schema_.is_known_section(name);
        }
    }

    const SourceLines lines_;
    const InputSchema& schema_;
    const Fixes fixes_;
    std::vector<bool> reads_well_;
    std::vector<MissingEnd> missing_;
    std::optional<MissingEnd> open_;
    bool swallowed_ = false;  // the open section holds a line that may not be its own
    bool unsure_ = false;     // and that may have been meant to stand behind it
};

// What stands between the end of a line and the beginning of the next one; nothing behind a last line without one.
std::string_view line_end_after(std::string_view text, std::string_view line) {
    const std::size_t end = static_cast<std::size_t>(line.data() - text.data()) + line.size();
    const std::size_t feed = text.find('\n', end);
    return feed == std::string_view::npos ? std::string_view() : text.substr(end, feed + 1 - end);
}

// What ends a last line that has no line end: the same as the line before it, if there is one.
std::string_view line_end_before(std::string_view text, std::string_view line) {
    if (line.ends_with('\r')) {
        return "\r\n";
    }
    const std::string_view before = text.substr(0, static_cast<std::size_t>(line.data() - text.data()));
    return before.ends_with("\r\n") ? "\r\n" : "\n";
}

}  // namespace

std::string with_missing_ends(std::string_view text, const InputSchema& schema, Fixes fixes) {
    EndFinder finder(text, schema, fixes);
    const auto missing = finder.run();
    std::string result;
    std::size_t copied = 0;
    for (const auto& [header, last] : missing) {
        const std::string_view opening = finder.lines().line(header);
        const std::string_view closing = finder.lines().line(last);
        const std::string_view line_end = line_end_after(text, closing);
        const std::size_t stop =
            static_cast<std::size_t>(closing.data() - text.data()) + closing.size() + line_end.size();
        const std::string_view wanted = line_end.empty() ? line_end_before(text, closing) : line_end;
        result += text.substr(copied, stop - copied);
        result += !line_end.empty() ? std::string_view() : closing.ends_with('\r') ? std::string_view("\n") : wanted;
        result += opening.substr(0, opening.find('>'));
        result += "end";
        result += wanted;
        copied = stop;
    }
    result += text.substr(copied);
    return result;
}

}  // namespace amesp_inp
