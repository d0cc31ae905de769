// '!' lines.
#include <map>
#include <string>

#include <velk/core/text_view.hpp>

#include "overlay/align.hpp"
#include "overlay/overlay.hpp"
#include "overlay/partners.hpp"
#include "overlay/read_back.hpp"
#include "overlay/words.hpp"

namespace velk::input::amesp::overlay {
namespace {

std::string key_of(const InputSchema& schema, const MethodToken& token) {
    return schema.canonical_method_token(token.canonical.empty() ? token.text : token.canonical);
}

// What stands in the place of one word of a method line.
struct WordChange {
    std::vector<std::string> before;  // words that are new in front of it
    std::vector<std::string> after;   // and behind it
    bool kept = true;
    std::string text;  // instead of the word, when not empty
};

// The words of one method line, with the offsets that they really have: a location does not tell when a word begins
// with the marker itself.
struct MethodLine {
    std::size_t line = 0;
    std::vector<std::string_view> words;
    std::vector<WordChange> changes;  // one for each word
};

class MethodLines {
public:
    MethodLines(Overlay& overlay, const AIPData& before, const AIPData& after)
        : overlay_(overlay), before_(before), after_(after) {}

    void lay() {
        if (before_.method_tokens == after_.method_tokens) {
            return;
        }
        const std::vector<std::string> old_keys = keys_of(before_);
        const std::vector<std::string> new_keys = keys_of(after_);
        const auto old_key = [&](std::size_t i) -> const std::string& { return old_keys[i]; };
        const auto new_key = [&](std::size_t i) -> const std::string& { return new_keys[i]; };
        const auto same = [&](std::size_t old, std::size_t i) { return old_keys[old] == new_keys[i]; };
        partners_ = Aligner(old_keys.size(), new_keys.size(), old_key, new_key, same).run();
        find_words();
        mark_removed();
        NextPartner next_partner(partners_);
        for (std::size_t i = 0; i < new_keys.size(); ++i) {
            if (partners_[i] == no_partner || old_keys[partners_[i]] != new_keys[i]) {
                place(i, next_partner.from(i));
            }
            previous_ = partners_[i] == no_partner ? previous_ : partners_[i];
        }
        write();
    }

private:
    std::vector<std::string> keys_of(const AIPData& data) const {
        std::vector<std::string> keys;
        keys.reserve(data.method_tokens.size());
        for (const MethodToken& token : data.method_tokens) {
            keys.push_back(key_of(overlay_.schema, token));
        }
        return keys;
    }

    void find_words() {
        for (const MethodToken& token : before_.method_tokens) {
            if (lines_.empty() || lines_.back().line != line_of(token)) {
                add_line(line_of(token));
            }
        }
    }

    void add_line(std::size_t line) {
        const std::string_view raw = overlay_.lines.raw(line);
        lines_.push_back({line, words_from(raw, raw.find('!') + 1), {}});
        lines_.back().changes.resize(lines_.back().words.size());
        for (std::size_t word = 0; word < lines_.back().words.size(); ++word) {
            if (overlay_.preserve_unknown || overlay_.schema.is_known_method_token(lines_.back().words[word])) {
                place_of_token_.emplace_back(lines_.size() - 1, word);
            }
        }
    }

    WordChange& change_of(std::size_t old_token) {
        const auto& [line, word] = place_of_token_[old_token];
        return lines_[line].changes[word];
    }

    void mark_removed() {
        const std::vector<bool> removed = without_partner(before_.method_tokens.size(), partners_);
        for (std::size_t i = 0; i < removed.size(); ++i) {
            change_of(i).kept = !removed[i];
        }
    }

    // The spelling of a token that reads back as it; empty when there is none.
    std::string spelling(const MethodToken& token) const {
        const std::string wanted = key_of(overlay_.schema, token);
        for (const std::string& candidate : {wanted, token.text}) {
            const std::optional<MethodToken> read = read_method_token(candidate, overlay_.schema);
            if (read && key_of(overlay_.schema, *read) == wanted) {
                return candidate;
            }
        }
        return {};
    }

    void place(std::size_t i, std::size_t next) {
        const MethodToken& token = after_.method_tokens[i];
        std::string text = spelling(token);
        if (text.empty()) {
            return overlay_.problems.cannot_write("Method-line token '" + token.text + "'", token.location);
        }
        if (partners_[i] != no_partner) {
            change_of(partners_[i]).text = std::move(text);
        } else if (previous_ != no_partner) {
            change_of(previous_).after.push_back(std::move(text));
        } else if (next != no_partner) {
            change_of(next).before.push_back(std::move(text));
        } else {
            fresh_.push_back(std::move(text));
        }
    }

    void write() {
        for (const MethodLine& line : lines_) {
            const std::string_view raw = overlay_.lines.raw(line.line);
            std::string text = changed(raw, line);
            if (text.empty()) {
                overlay_.patch.drop(line.line);
            } else if (text != raw) {
                overlay_.patch.replace(line.line, std::move(text));
            }
        }
        if (!fresh_.empty()) {
            std::string text = "!";
            for (const std::string& word : fresh_) {
                text += ' ' + word;
            }
            overlay_.patch.insert(place_of_new_line(), InsertOrder::method_line, std::move(text));
        }
    }

    // The line with its changes; empty when no word is left.
    static std::string changed(std::string_view raw, const MethodLine& line) {
        const std::size_t marker_end = raw.find('!') + 1;
        std::string text(raw.substr(0, marker_end));
        bool any = false;
        const std::string_view first_gap = raw.substr(marker_end, offset_in(raw, line.words.front()) - marker_end);
        const auto add = [&](std::string_view gap, std::string_view word) {
            const bool beside_marker = !any && first_gap.empty();
            text += beside_marker ? std::string_view() : gap.empty() ? std::string_view(" ") : gap;
            text += word;
            any = true;
        };
        std::size_t cursor = marker_end;
        for (std::size_t i = 0; i < line.words.size(); ++i) {
            const WordChange& change = line.changes[i];
            const std::size_t begin = offset_in(raw, line.words[i]);
            for (const std::string& word : change.before) {
                add(first_gap, word);
            }
            if (change.kept) {
                add(raw.substr(cursor, begin - cursor), change.text.empty() ? line.words[i] : change.text);
            }
            for (const std::string& word : change.after) {
                add(" ", word);
            }
            cursor = begin + line.words[i].size();
        }
        text += raw.substr(cursor);
        return any ? text : std::string();
    }

    std::size_t place_of_new_line() const {
        if (!before_.directives.empty()) {
            return line_of(before_.directives.back()) + 1;
        }
        const LineTable& lines = overlay_.lines;
        return lines.sections().empty() ? lines.size() : lines.sections().front().header;
    }

    Overlay& overlay_;
    const AIPData& before_;
    const AIPData& after_;
    std::vector<std::size_t> partners_;
    std::size_t previous_ = no_partner;  // of the tokens placed so far, the last that has one
    std::vector<MethodLine> lines_;
    std::vector<std::pair<std::size_t, std::size_t>> place_of_token_;  // line and word of every old token
    std::vector<std::string> fresh_;                                   // tokens of a document that had none
};

}  // namespace

void lay_method_tokens(Overlay& overlay, const AIPData& before, const AIPData& after) {
    MethodLines(overlay, before, after).lay();
}

}  // namespace velk::input::amesp::overlay
