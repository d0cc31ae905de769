// What becomes of each line of a text.
#include "in_place/patch.hpp"

#include <algorithm>
#include <string_view>

#include <velk/core/text_view.hpp>

#include "large_room.hpp"

namespace velk::input::amesp {
namespace {

// Of a text that ends in a line feed.
bool ends_with_blank_line(std::string_view text) {
    text.remove_suffix(1);
    return core::text::trim_view(text.substr(text.rfind('\n') + 1)).empty();  // npos + 1 is 0
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

void Patch::emit(std::string& out, const Insertion& insertion) const {
    const std::string_view end = line_end_at(insertion.slot);
    if (!out.empty() && out.back() != '\n') {
        out += out.back() == '\r' ? std::string_view("\n") : end;
    }
    if (insertion.after_blank && !out.empty() && !ends_with_blank_line(out)) {
        out += end;
    }
    out += insertion.text;
    out += end;
}

std::size_t Patch::longest_size() const {
    constexpr std::size_t line_ends = 6;  // of the line before it, of a blank one, its own
    std::size_t size = lines_.text().size();
    for (const Insertion& insertion : insertions_) {
        size += insertion.text.size() + line_ends;
    }
    for (const auto& [line, text] : replaced_) {
        size += text.size();
    }
    return size;
}

std::string Patch::assemble() {
    std::stable_sort(insertions_.begin(), insertions_.end(), [](const Insertion& a, const Insertion& b) {
        return std::pair(a.slot, a.order) < std::pair(b.slot, b.order);
    });
    std::sort(replaced_.begin(), replaced_.end());
    std::string out;
    core::reserve_room(out, longest_size());
    std::size_t copied = 0;  // of the old text, what stays in one piece goes over in one piece
    const auto copy_up_to = [&](std::size_t line) {
        const std::size_t begin = lines_.begin_of(line);
        out += lines_.text().substr(copied, begin - copied);
        copied = begin;
    };
    auto insertion = insertions_.begin();
    auto replacement = replaced_.begin();
    for (std::size_t line = 0; line < lines_.size(); ++line) {
        for (; insertion != insertions_.end() && insertion->slot == line; ++insertion) {
            copy_up_to(line);
            emit(out, *insertion);
        }
        const bool replaced = replacement != replaced_.end() && replacement->first == line;
        if (replaced || dropped_[line]) {
            copy_up_to(line);
            copied = lines_.begin_of(line + 1);
        }
        if (replaced) {
            out += replacement->second;
            out += lines_.line_end(line);
            ++replacement;
        }
    }
    copy_up_to(lines_.size());
    for (; insertion != insertions_.end(); ++insertion) {
        emit(out, *insertion);
    }
    return out;
}

}  // namespace velk::input::amesp
