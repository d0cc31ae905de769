// '!' lines.
#include <string>

#include <velk/core/text_view.hpp>

#include "in_place/method_words.hpp"
#include "in_place/partners.hpp"
#include "in_place/read_back.hpp"
#include "in_place/revision.hpp"
#include "in_place/token_partners.hpp"
#include "in_place/words.hpp"
#include "model/key.hpp"

namespace velk::input::amesp::in_place {
namespace {

std::string key_of(const InputSchema& schema, const MethodToken& token) {
    return schema.canonical_method_token(token.canonical.empty() ? token.text : token.canonical);
}

struct MethodLine {
    std::size_t line = 0;
    MethodWords words;
    std::string_view remark;  // of the words that stay; empty when there is none
};

class MethodLines {
public:
    MethodLines(Revision& revision, const AIPData& before, const AIPData& after)
        : revision_(revision), before_(before), after_(after) {}

    void run() {
        if (before_.method_tokens == after_.method_tokens) {
            return;
        }
        const KeyedTokens old_tokens{before_.method_tokens, keys_of(before_)};
        const KeyedTokens new_tokens{after_.method_tokens, keys_of(after_)};
        std::optional<std::vector<std::size_t>> found = token_partners(old_tokens, new_tokens);
        if (!found) {
            return revision_.problems.not_of_this_text("The list of method-line tokens", std::nullopt);
        }
        partners_ = *std::move(found);
        find_words();
        mark_removed();
        for (std::size_t i = 0; i < partners_.size(); ++i) {
            if (partners_[i] != no_partner && old_tokens.keys[partners_[i]] != new_tokens.keys[i]) {
                respell(i);
            }
        }
        for (MethodLine& line : lines_) {
            line.remark = remark_left(line.words);
        }
        add_new();
        write();
    }

private:
    std::vector<std::string> keys_of(const AIPData& data) const {
        std::vector<std::string> keys;
        keys.reserve(data.method_tokens.size());
        for (const MethodToken& token : data.method_tokens) {
            keys.push_back(key_of(revision_.schema, token));
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
        const MethodLine& added = lines_.emplace_back(MethodLine{line, method_words(revision_.lines.raw(line)), {}});
        const std::vector<std::string_view>& words = added.words.words;
        for (std::size_t word = 0; word < words.size(); ++word) {
            if (revision_.preserve_unknown || revision_.schema.is_known_method_token(words[word])) {
                place_of_token_.emplace_back(lines_.size() - 1, word);
            }
        }
    }

    MethodLine& line_with(std::size_t old_token) { return lines_[place_of_token_[old_token].first]; }
    WordChange& change_of(std::size_t old_token) {
        return line_with(old_token).words.changes[place_of_token_[old_token].second];
    }

    void mark_removed() {
        const std::vector<bool> removed = without_partner(before_.method_tokens.size(), partners_);
        for (std::size_t i = 0; i < removed.size(); ++i) {
            change_of(i).kept = !removed[i];
        }
    }

    // The spelling of a token that reads back as it; empty when there is none, which is reported. Between words with
    // `capitals` a name keeps those that were typed.
    std::string spelling(const MethodToken& token, bool capitals) const {
        const std::string wanted = key_of(revision_.schema, token);
        const bool as_typed = capitals && same_key(token.text, wanted);
        for (const std::string& candidate : {as_typed ? token.text : wanted, wanted, token.text}) {
            const std::optional<MethodToken> read = read_method_token(candidate, revision_.schema);
            if (read && key_of(revision_.schema, *read) == wanted) {
                return candidate;
            }
        }
        revision_.problems.cannot_write("Method-line token '" + token.text + "'", token.location);
        return {};
    }

    void respell(std::size_t i) {
        const std::size_t partner = partners_[i];
        change_of(partner).text = spelling(after_.method_tokens[i], line_with(partner).words.capitals);
    }

    void add_new() {
        NextPartner next_partner(partners_);
        std::size_t previous = no_partner;  // of the tokens so far, the last that has one
        for (std::size_t i = 0; i < partners_.size(); ++i) {
            if (partners_[i] != no_partner) {
                previous = partners_[i];
            } else {
                add(after_.method_tokens[i], previous, next_partner.from(i));
            }
        }
    }

    void add(const MethodToken& token, std::size_t previous, std::size_t next) {
        if (previous == no_partner && next == no_partner) {
            return add_word(fresh_, spelling(token, false));
        }
        const MethodLine& line = line_with(previous != no_partner ? previous : next);
        if (!line.remark.empty()) {
            const std::size_t column = offset_in(line.words.raw, line.remark) + 1;
            return revision_.problems.remark_in_method_line(token.text, {line.line + 1, column, line.remark.size()});
        }
        add_word(previous != no_partner ? change_of(previous).after : change_of(next).before,
                 spelling(token, line.words.capitals));
    }

    static void add_word(std::vector<std::string>& words, std::string word) {
        if (!word.empty()) {
            words.push_back(std::move(word));
        }
    }

    void write() {
        for (const MethodLine& line : lines_) {
            std::string text = changed(line.words);
            if (text.empty()) {
                revision_.patch.drop(line.line);
            } else if (text != line.words.raw) {
                revision_.patch.replace(line.line, std::move(text));
            }
        }
        if (!fresh_.empty()) {
            std::string text = "!";
            for (const std::string& word : fresh_) {
                text += ' ' + word;
            }
            revision_.patch.insert(place_of_new_line(), InsertOrder::method_line, std::move(text));
        }
    }

    std::size_t place_of_new_line() const {
        if (!before_.directives.empty()) {
            return line_of(before_.directives.back()) + 1;
        }
        const LineTable& lines = revision_.lines;
        return lines.sections().empty() ? lines.size() : lines.above_remark(lines.sections().front().header);
    }

    Revision& revision_;
    const AIPData& before_;
    const AIPData& after_;
    std::vector<std::size_t> partners_;
    std::vector<MethodLine> lines_;
    std::vector<std::pair<std::size_t, std::size_t>> place_of_token_;  // line and word of every old token
    std::vector<std::string> fresh_;                                   // tokens of a document that had none
};

}  // namespace

void edit_method_tokens(Revision& revision, const AIPData& before, const AIPData& after) {
    MethodLines(revision, before, after).run();
}

}  // namespace velk::input::amesp::in_place
