// The words of a method line, and what becomes of each.
#include "in_place/method_words.hpp"

#include <algorithm>

#include "in_place/words.hpp"
#include "model/key.hpp"

namespace velk::input::amesp::in_place {

namespace {

bool holds_capital(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return to_lower(c) != c; });
}

}  // namespace

MethodWords method_words(std::string_view raw) {
    MethodWords line{raw, words_from(raw, raw.find('!') + 1), {}, holds_capital(raw)};
    line.changes.resize(line.words.size());
    return line;
}

std::string_view remark_left(const MethodWords& line) {
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const WordChange& change = line.changes[i];
        if (change.kept && change.text.empty() && line.words[i].front() == '#') {
            return line.words[i];
        }
    }
    return {};
}

std::string changed(const MethodWords& line) {
    const std::string_view raw = line.raw;
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

}  // namespace velk::input::amesp::in_place
