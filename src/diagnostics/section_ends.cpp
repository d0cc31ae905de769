// Finds where an 'end' was meant.
#include "diagnostics/section_ends.hpp"

#include <velk/core/text_view.hpp>

#include "diagnostics/end_words.hpp"
#include "diagnostics/header_entries.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

bool is_marked(std::string_view text) {
    return is_marked(classify(text));
}

bool is_header(std::string_view text) {
    return text.size() > 1 && text.front() == '>';
}

// Whether some section holds a marked line or has no 'end': most texts need no further look.
bool may_lack_ends(const LineTable& lines) {
    for (const SectionLines& section : lines.sections()) {
        for (std::size_t line = section.header + 1; line < section.stop; ++line) {
            if (is_marked(trim_view(lines.raw(line)))) {
                return true;
            }
        }
    }
    return lines.ends_in_open_section();
}

enum class Certainty { certain, likely };

// One walk over the lines, as if the ends found so far stood there.
class EndFinder {
public:
    EndFinder(const LineTable& lines, const InputSchema& schema, Certainty certainty)
        : lines_(lines), schema_(schema), certainty_(certainty), reads_well_(lines.size() + 1, true) {}

    std::vector<EndFault> run() {
        find_what_reads_well();
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            read(line, trimmed(line));
        }
        if (open_) {
            open_->has_place = !open_->swallowed;
            faults_.push_back(*open_);
        }
        return std::move(faults_);
    }

private:
    std::string_view trimmed(std::size_t line) const { return trim_view(lines_.raw(line)); }

    // Whether everything from a line on, read outside of sections, has its place up to the next section.
    void find_what_reads_well() {
        for (std::size_t line = lines_.size(); line-- > 0;) {
            const std::string_view text = trimmed(line);
            const LineKind kind = classify(text);
            reads_well_[line] = is_header(text) || (kind != LineKind::other && reads_well_[line + 1]);
        }
    }

    void read(std::size_t line, std::string_view text) {
        if (!open_) {
            return is_header(text) ? open(line, text) : void();
        }
        if (is_section_end(text)) {
            open_.reset();
        } else if (is_misspelt(line, text)) {
            open_->last = line;
            close_before(line);
            faults_.back().kind = EndFault::Kind::misspelt;
        } else if (is_marked(text)) {
            read_marked(line, text);
        } else if (belongs_to_section(line, text)) {
            open_->last = line;
        }
    }

    void open(std::size_t line, std::string_view text) {
        open_ = EndFault{line, line, {}};
        is_unsure_ = false;
        if (reads_well_[line + 1] && is_one_line_section(text, schema_)) {
            close_before(line);
            faults_.back().kind = EndFault::Kind::one_line;
        }
    }

    void read_marked(std::size_t line, std::string_view text) {
        if (is_meant(line, text)) {
            close_before(line);
            return read(line, text);
        }
        if (!open_->swallowed) {
            open_->swallowed = line;
        }
        is_unsure_ = is_unsure_ || reads_well_[line];
        open_->last = line;
    }

    void close_before(std::size_t line) {
        open_->swallowed = line;
        faults_.push_back(*open_);
        open_.reset();
    }

    // A comment that is not indented goes with what follows it.
    bool belongs_to_section(std::size_t line, std::string_view text) const {
        return !text.empty() && (classify(text) != LineKind::comment || lines_.raw(line).front() != text.front());
    }

    bool is_misspelt(std::size_t line, std::string_view text) const {
        return reads_well_[line + 1] && is_misspelt_end(text, marked_name(trimmed(open_->header)), schema_);
    }

    // Whether the line was meant to stand after the open section.
    bool is_meant(std::size_t line, std::string_view text) const {
        if (!reads_well_[line]) {
            return false;
        }
        return certainty_ == Certainty::likely ||
               (!is_unsure_ && schema_.is_known_section(marked_name(trimmed(open_->header))) && is_known(text));
    }

    bool is_known(std::string_view text) const {
        const std::string_view name = marked_name(text);
        switch (text.front()) {
            case '%':
                return schema_.is_known_directive(name);
            case '!':
                return schema_.is_known_method_token(name);
            default:
                return schema_.is_known_section(name);
        }
    }

    const LineTable& lines_;
    const InputSchema& schema_;
    const Certainty certainty_;
    std::vector<bool> reads_well_;
    std::vector<EndFault> faults_;
    std::optional<EndFault> open_;
    bool is_unsure_ = false;  // the open section holds a line that may have been meant to stand after it
};

}  // namespace

std::vector<EndFault> find_end_faults(const LineTable& lines, const InputSchema& schema) {
    if (!may_lack_ends(lines)) {
        return {};
    }
    const std::vector<EndFault> certain = EndFinder(lines, schema, Certainty::certain).run();
    std::vector<EndFault> faults = EndFinder(lines, schema, Certainty::likely).run();
    auto next = certain.begin();
    for (EndFault& fault : faults) {
        while (next != certain.end() && next->header < fault.header) {
            ++next;
        }
        fault.is_certain =
            fault.kind == EndFault::Kind::misspelt || (next != certain.end() && *next == fault && fault.has_place);
    }
    return faults;
}

std::string_view marked_name(std::string_view trimmed) {
    trimmed.remove_prefix(1);
    return core::text::take_word(trimmed);
}

}  // namespace velk::input::amesp
