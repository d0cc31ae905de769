// What must hold of edits of method tokens.
#include "in_place/token_laws.hpp"

#include <algorithm>
#include <string_view>

namespace velk::test {
namespace {

using namespace input::amesp;
using Words = std::vector<std::string>;

std::string remark_below(std::size_t line) {
    return "# " + std::to_string(line) + "\n";
}

// The inverse, also where lines are gone; a piece that says what is wrong when the text is no such text.
std::vector<TokenPiece> pieces_of(std::string_view text, std::size_t lines) {
    std::vector<TokenPiece> pieces;
    for (std::size_t line = 0; line < lines; ++line) {
        const std::size_t end = text.find(remark_below(line));
        if (end == std::string_view::npos) {
            return {{line, 0, "the remark below is lost"}};
        }
        std::string_view words = text.substr(0, end);
        text.remove_prefix(end + remark_below(line).size());
        if (words.empty()) {
            continue;
        }
        if (!words.starts_with("!  ") || !words.ends_with("\t\n")) {
            return {{line, 0, "not the ends of a method line: " + std::string(words)}};
        }
        for (words = words.substr(1, words.size() - 3); !words.empty();) {
            const std::size_t gap = std::min(words.find_first_not_of(' '), words.size());
            const std::size_t stop = std::min(words.find(' ', gap), words.size());
            pieces.push_back({line, gap, std::string(words.substr(gap, stop - gap))});
            words.remove_prefix(stop);
        }
    }
    return text.empty() ? pieces : std::vector<TokenPiece>{{lines, 0, "more after the last remark"}};
}

std::string lower(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return word;
}

// How many of the old words can stay where the new ones are wanted.
std::size_t most_kept(const Words& old, const Words& now, std::size_t i = 0, std::size_t j = 0) {
    if (i == old.size() || j == now.size()) {
        return 0;
    }
    if (old[i] == now[j]) {
        return 1 + most_kept(old, now, i + 1, j + 1);
    }
    return std::max(most_kept(old, now, i + 1, j), most_kept(old, now, i, j + 1));
}

class Judge {
public:
    Judge(const std::vector<TokenPiece>& old, const AIPData& before, const AIPData& after, const std::string& result)
        : old_(old), before_(before), after_(after), now_(pieces_of(result, old.back().line + 1)) {}

    std::string run() const {
        const std::vector<MethodToken>& wanted = after_.method_tokens;
        if (now_.size() != wanted.size()) {
            return "not as many words as tokens";
        }
        std::size_t next = 0;  // of the old words, the first after all that have a place in the edited list
        std::size_t located = 0;
        std::size_t kept = 0;
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            if (lower(now_[i].word) != wanted[i].canonical) {
                return "another token instead of " + wanted[i].canonical;
            }
            if (wanted[i].location) {
                next = old_place(*wanted[i].location) + 1;
                ++located;
                if (now_[i] != old_[next - 1]) {
                    return "an untouched word changed";
                }
            }
            kept += is_old(now_[i]) ? 1U : 0U;
        }
        if (kept < located + most_kept(old_keys_from(next), new_keys_from(located))) {
            return "a word changed that is the same";
        }
        return broken_by_new_word(located);
    }

private:
    std::size_t old_place(const SourceLocation& location) const {
        std::size_t i = 0;
        while (!(before_.method_tokens.at(i).location == location)) {
            ++i;
        }
        return i;
    }

    bool is_old(const TokenPiece& piece) const { return std::find(old_.begin(), old_.end(), piece) != old_.end(); }

    Words old_keys_from(std::size_t begin) const {
        Words keys;
        for (; begin < old_.size(); ++begin) {
            keys.push_back(lower(old_[begin].word));
        }
        return keys;
    }

    Words new_keys_from(std::size_t begin) const {
        Words keys;
        for (; begin < now_.size(); ++begin) {
            keys.push_back(after_.method_tokens[begin].canonical);
        }
        return keys;
    }

    // The edits put tokens without location after all others.
    std::string broken_by_new_word(std::size_t located) const {
        for (std::size_t i = located; i < now_.size(); ++i) {
            if (is_old(now_[i])) {
                continue;
            }
            const bool in_place_of_old = now_[i].gap >= first_token_gap;
            if (in_place_of_old && located > 0) {
                return "a word taken for another one that was removed";
            }
            if (!in_place_of_old && now_[i].line != now_[i - 1].line) {
                return "a new word not in the line of the one before";
            }
            const bool capitals = std::any_of(old_.begin(), old_.end(), [&](const TokenPiece& piece) {
                return piece.line == now_[i].line && piece.word != lower(piece.word);
            });
            const MethodToken& token = after_.method_tokens[i];
            if (now_[i].word != (capitals ? token.text : token.canonical)) {
                return "a new word not spelt like its line";
            }
        }
        return {};
    }

    const std::vector<TokenPiece>& old_;
    const AIPData& before_;
    const AIPData& after_;
    std::vector<TokenPiece> now_;
};

}  // namespace

std::string text_of_pieces(const std::vector<TokenPiece>& pieces) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool begins = i == 0 || pieces[i - 1].line != pieces[i].line;
        const bool ends = i + 1 == pieces.size() || pieces[i + 1].line != pieces[i].line;
        text += (begins ? "!" : "") + std::string(pieces[i].gap, ' ') + pieces[i].word;
        text += ends ? "\t\n" + remark_below(pieces[i].line) : "";
    }
    return text;
}

std::string broken_token_law(const std::vector<TokenPiece>& old, const AIPData& before, const AIPData& after,
                             const std::string& result) {
    return Judge(old, before, after, result).run();
}

}  // namespace velk::test
