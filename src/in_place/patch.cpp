// What becomes of each line of a text.
#include "in_place/patch.hpp"

#include <algorithm>
#include <string_view>

#include <velk/core/text_view.hpp>

namespace velk::input::amesp {
namespace {

// Of bytes that are no UTF-8 any place will do.
bool begins_character(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

// The edit that gives `old` the bytes of `text`, without what both begin and end with; whole characters.
TextEdit difference(std::size_t offset, std::string_view old, std::string_view text) {
    std::size_t begin = 0;
    const std::size_t shorter = std::min(old.size(), text.size());
    while (begin < shorter && old[begin] == text[begin]) {
        ++begin;
    }
    while (begin > 0 && begin < old.size() && !begins_character(old[begin])) {
        --begin;
    }
    std::size_t end = 0;  // counted from the ends
    while (end < shorter - begin && old[old.size() - 1 - end] == text[text.size() - 1 - end]) {
        ++end;
    }
    while (end > 0 && !begins_character(old[old.size() - end])) {
        --end;
    }
    return {offset + begin, old.size() - begin - end, std::string(text.substr(begin, text.size() - begin - end))};
}

}  // namespace

void Patch::drop(std::size_t first, std::size_t stop) {
    for (std::size_t line = first; line < stop; ++line) {
        drop(line);
    }
}

void Patch::insert(std::size_t slot, InsertOrder order, std::string text) {
    insertions_.push_back({slot, order, false, std::move(text)});
}

void Patch::insert_after_blank(std::size_t slot, InsertOrder order, std::string text) {
    insertions_.push_back({slot, order, true, std::move(text)});
}

bool Patch::appends() const {
    return std::any_of(insertions_.begin(), insertions_.end(), [this](const Insertion& insertion) {
        return insertion.slot == lines_.size() && insertion.order > InsertOrder::section_end;
    });
}

std::string_view Patch::line_end_at(std::size_t slot) const {
    constexpr std::string_view line_feed = "\n";
    if (lines_.size() == 0) {
        return line_feed;
    }
    const std::size_t neighbour = slot == 0 ? 0 : slot - 1;
    if (const std::string_view end = lines_.line_end(neighbour); !end.empty()) {
        return end;
    }
    // The neighbour is the last line and has no line end, or half of one.
    if (lines_.raw(neighbour).ends_with('\r')) {
        return "\r\n";
    }
    return neighbour > 0 ? lines_.line_end(neighbour - 1) : line_feed;
}

Patch::Last Patch::emit(std::vector<TextEdit>& edits, const Insertion& insertion, const Last& last) const {
    const std::string_view end = line_end_at(insertion.slot);
    const std::size_t offset = lines_.begin_of(insertion.slot);
    if (edits.empty() || edits.back().offset != offset) {
        edits.push_back({offset, 0, {}});
    }
    std::string& out = edits.back().text;
    if (!last.text.empty() && last.line_end.empty()) {
        out += last.text.ends_with('\r') ? std::string_view("\n") : end;
    }
    if (insertion.after_blank && !core::text::trim_view(last.text).empty()) {
        out += end;
    }
    out += insertion.text;
    out += end;
    return {insertion.text, end};
}

Patch::Last Patch::emit_replacement(std::vector<TextEdit>& edits, std::size_t line, const std::string& text) const {
    edits.push_back(difference(lines_.begin_of(line), lines_.raw(line), text));
    return {text, lines_.line_end(line)};
}

// Lines that follow each other go at once.
void Patch::emit_drop(std::vector<TextEdit>& edits, std::size_t line) const {
    const std::size_t begin = lines_.begin_of(line);
    const std::size_t length = lines_.begin_of(line + 1) - begin;
    if (!edits.empty() && edits.back().text.empty() && edits.back().offset + edits.back().length == begin) {
        edits.back().length += length;
        return;
    }
    edits.push_back({begin, length, {}});
}

std::vector<TextEdit> Patch::edits() {
    std::stable_sort(insertions_.begin(), insertions_.end(), [](const Insertion& a, const Insertion& b) {
        return std::pair(a.slot, a.order) < std::pair(b.slot, b.order);
    });
    std::sort(replaced_.begin(), replaced_.end());
    std::vector<TextEdit> edits;
    Last last;
    auto insertion = insertions_.begin();
    auto replacement = replaced_.begin();
    for (std::size_t line = 0; line <= lines_.size(); ++line) {
        for (; insertion != insertions_.end() && insertion->slot == line; ++insertion) {
            last = emit(edits, *insertion, last);
        }
        if (line == lines_.size()) {
            break;
        }
        if (replacement != replaced_.end() && replacement->first == line) {
            last = emit_replacement(edits, line, replacement->second);
            ++replacement;
        } else if (dropped_[line]) {
            emit_drop(edits, line);
        } else {
            last = {lines_.raw(line), lines_.line_end(line)};
        }
    }
    return edits;
}

}  // namespace velk::input::amesp
