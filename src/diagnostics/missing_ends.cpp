// Finds where an 'end' was meant.
#include "diagnostics/missing_ends.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/places.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

// The numbers of the header and of the line to be followed by its 'end'.
struct Place {
    std::uint64_t header = 0;
    std::uint64_t last = 0;

    bool operator==(const Place&) const = default;
};

bool is_comment(std::string_view text) {
    return classify(text) == LineKind::comment;
}

bool is_marked(std::string_view text) {
    return is_marked(classify(text));
}

std::string_view name_in(std::string_view marked) {
    marked.remove_prefix(1);
    return take_word(marked);
}

bool is_header(std::string_view text) {
    return text.starts_with('>') && !name_in(text).empty();
}

// Whether some section holds a marked line or has no 'end': most texts need no further look.
bool may_lack_ends(std::string_view text) {
    bool in_section = false;
    LineCursor lines(text);
    for (Line line; lines.next(line);) {
        if (in_section && is_marked(line.text)) {
            return true;
        }
        in_section = in_section ? !is_section_end(line.text) : is_header(line.text);
    }
    return in_section;
}

// One walk over the lines, as if the ends found so far stood there.
class EndFinder {
public:
    EndFinder(const TextPositions& text, const InputSchema& schema, Applicability up_to)
        : text_(text), count_(last_line(text)), schema_(schema), up_to_(up_to), reads_well_(count_ + 2, true) {}

    std::vector<Place> run() {
        find_what_reads_well();
        for (std::uint64_t number = 1; number <= count_; ++number) {
            read(number, trimmed(number));
        }
        if (open_ && !swallowed_) {
            missing_.push_back(*open_);
        }
        return std::move(missing_);
    }

private:
    std::string_view trimmed(std::uint64_t number) const { return trim_view(text_.line(number)); }

    // Whether everything from a line on, read outside of sections, has its place up to the next section.
    void find_what_reads_well() {
        for (std::uint64_t number = count_; number > 0; --number) {
            const std::string_view text = trimmed(number);
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
        if (open_ && is_section_end(text)) {
            open_.reset();
        } else if (open_ && belongs_to_section(number, text)) {
            open_->last = number;
        } else if (!open_ && is_header(text)) {
            open_ = Place{number, number};
            swallowed_ = false;
            unsure_ = false;
        }
    }

    // A comment that is not indented goes with what follows it.
    bool belongs_to_section(std::uint64_t number, std::string_view text) const {
        return !text.empty() && (!is_comment(text) || text_.line(number).front() != text.front());
    }

    // Whether the line was meant to stand after the open section.
    bool is_meant(std::uint64_t number, std::string_view text) const {
        if (!reads_well_[number]) {
            return false;
        }
        return up_to_ == Applicability::likely ||
               (!unsure_ && schema_.is_known_section(name_in(trimmed(open_->header))) && is_known(text));
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

    const TextPositions& text_;
    const std::uint64_t count_;
    const InputSchema& schema_;
    const Applicability up_to_;
    std::vector<bool> reads_well_;
    std::vector<Place> missing_;
    std::optional<Place> open_;
    bool swallowed_ = false;  // the open section holds a line that may not be its own
    bool unsure_ = false;     // and that may have been meant to stand after it
};

// What stands between the end of a line and the beginning of the next one; nothing after a last line without one.
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

// An 'end' after that line, with the indentation of its header.
TextEdit end_after(std::string_view text, const TextPositions& lines, const Place& place) {
    const std::string_view opening = lines.line(place.header);
    const std::string_view closing = lines.line(place.last);
    const std::string_view line_end = line_end_after(text, closing);
    const std::size_t stop = static_cast<std::size_t>(closing.data() - text.data()) + closing.size() + line_end.size();
    const std::string_view wanted = line_end.empty() ? line_end_before(text, closing) : line_end;
    std::string end(line_end.empty() ? (closing.ends_with('\r') ? std::string_view("\n") : wanted)
                                     : std::string_view());
    end += opening.substr(0, opening.find('>'));
    end += "end";
    end += wanted;
    return {stop, 0, std::move(end)};
}

}  // namespace

std::vector<MissingEnd> find_missing_ends(std::string_view text, const InputSchema& schema) {
    if (!may_lack_ends(text)) {
        return {};
    }
    const TextPositions lines(text);
    const std::vector<Place> certain = EndFinder(lines, schema, Applicability::certain).run();
    std::vector<MissingEnd> missing;
    auto next_certain = certain.begin();
    for (const Place& place : EndFinder(lines, schema, Applicability::likely).run()) {
        while (next_certain != certain.end() && next_certain->header < place.header) {
            ++next_certain;
        }
        const bool is_certain = next_certain != certain.end() && *next_certain == place;
        missing.push_back({place.header,
                           {"add the missing 'end'",
                            is_certain ? Applicability::certain : Applicability::likely,
                            {end_after(text, lines, place)}}});
    }
    return missing;
}

}  // namespace velk::input::amesp
