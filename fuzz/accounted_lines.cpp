// Where every line of a text went.
#include "accounted_lines.hpp"

#include <algorithm>
#include <cstdint>
#include <vector>
#include <velk/core/text.hpp>

namespace velk::fuzz {
namespace {

using namespace input::amesp;

std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t feed = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, feed));
        text.remove_prefix(std::min(feed + 1, text.size()));
    }
    return lines;
}

bool ends_section(const std::string& line) {
    std::string word = core::text::trim(line);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    return word == "end";
}

// A list whose elements are taken in order.
template <class Record>
class Queue {
public:
    explicit Queue(const std::vector<Record>& list) : next_(list.begin()), end_(list.end()) {}

    bool done() const { return next_ == end_; }

    // Takes all next records that stand in that line; says how many.
    std::size_t take_located(std::uint64_t line) {
        const auto begin = next_;
        while (next_ != end_ && next_->location && next_->location->line == line) {
            ++next_;
        }
        return static_cast<std::size_t>(next_ - begin);
    }

    // Takes the next string if it is that line, with or without the carriage return at its end.
    bool take_text(const std::string& line) {
        if (done() || (*next_ != line && *next_ + "\r" != line)) {
            return false;
        }
        ++next_;
        return true;
    }

private:
    typename std::vector<Record>::const_iterator next_;
    typename std::vector<Record>::const_iterator end_;
};

class Account {
public:
    Account(std::string_view text, const AIPData& data)
        : lines_(lines_of(text)),
          sections_(data.sections),
          comments_(data.header_comments),
          directives_(data.directives),
          tokens_(data.method_tokens),
          preserved_(data.preserved_lines) {
        for (const ParseWarning& warning : data.warnings) {
            warned_.push_back(warning.location ? warning.location->line : 0);
        }
    }

    std::string first_unaccounted() {
        while (index_ < lines_.size()) {
            if (!take_line()) {
                return "line " + std::to_string(index_) + ": " + lines_[index_ - 1];
            }
        }
        const bool all = section_ == sections_.size() && comments_.done() && directives_.done() && tokens_.done() &&
                         preserved_.done();
        return all ? "" : "a record that no line holds";
    }

private:
    // The line at hand is number index_ while it is taken.
    bool take_line() {
        const std::string& line = lines_[index_++];
        if (section_ < sections_.size() && sections_[section_].location->line == index_) {
            return take_section();
        }
        const std::size_t places = directives_.take_located(index_) + (tokens_.take_located(index_) > 0 ? 1 : 0) +
                                   (comments_.take_text(line) || preserved_.take_text(line) ? 1 : 0);
        const std::string text = core::text::trim(line);
        if (text.empty()) {
            return places == 0;
        }
        const bool bare_marker = text == "%" || text == "!" || text == ">";
        return places == (bare_marker ? 0 : 1) && (!bare_marker || is_warned_of());
    }

    bool is_warned_of() const { return std::find(warned_.begin(), warned_.end(), index_) != warned_.end(); }

    bool take_section() {
        const Section& section = sections_[section_++];
        Queue<SectionEntry> entries(section.entries);
        Queue<AtomRecord> atoms(section.atoms);
        Queue<std::string> raw_lines(section.raw_lines);
        const auto all_taken = [&] { return entries.done() && atoms.done() && raw_lines.done(); };
        while (index_ < lines_.size()) {
            const std::string& line = lines_[index_++];
            if (ends_section(line)) {
                return section.terminated && all_taken();
            }
            const std::size_t places = entries.take_located(index_) + atoms.take_located(index_);
            if (places + (raw_lines.take_text(line) ? 1 : 0) != 1) {
                return false;
            }
        }
        return !section.terminated && all_taken();
    }

    const std::vector<std::string> lines_;
    const std::vector<Section>& sections_;
    std::size_t section_ = 0;
    std::size_t index_ = 0;
    Queue<std::string> comments_;
    Queue<Directive> directives_;
    Queue<MethodToken> tokens_;
    Queue<std::string> preserved_;
    std::vector<std::uint64_t> warned_;
};

}  // namespace

std::string unaccounted_line(std::string_view text, const AIPData& data) {
    return Account(text, data).first_unaccounted();
}

}  // namespace velk::fuzz
