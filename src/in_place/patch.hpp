// What becomes of each line of a text, and the edits that this makes.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <velk/input/amesp/text_edit.hpp>

#include "in_place/line_table.hpp"

namespace velk::input::amesp {

// Which of the lines inserted at one place come first.
enum class InsertOrder { body, section_end, directive, method_line, section };

// Lines are kept unless dropped or replaced; no line is both, and each is replaced at most once.
class Patch {
public:
    // `lines` must outlive the patch.
    explicit Patch(const LineTable& lines) : lines_(lines), dropped_(lines.size(), false) {}

    // A line must be there: a subscript of a vector of bits is checked by nothing else, not even by assertions.
    void drop(std::size_t line) { dropped_.at(line) = true; }
    void drop(std::size_t first, std::size_t stop);
    bool drops(std::size_t line) const { return dropped_.at(line); }
    void replace(std::size_t line, std::string text) { replaced_.emplace_back(line, std::move(text)); }

    // Puts a line before line number `slot`, or at the end when that is the number of lines. Lines inserted at one
    // place with the same order keep the order of the calls.
    void insert(std::size_t slot, InsertOrder order, std::string text);
    // The same, with a blank line before it unless it follows one or stands at the top.
    void insert_after_blank(std::size_t slot, InsertOrder order, std::string text);

    // Whether something besides section content was put after the last line.
    bool appends() const;

    // What makes the new text of the old one, once. An inserted line ends like the line before it, else like the one
    // after it, else with a line feed; a last line without a line end gets one when something follows it.
    std::vector<TextEdit> edits();

private:
    struct Insertion {
        std::size_t slot = 0;
        InsertOrder order = InsertOrder::body;
        bool after_blank = false;
        std::string text;
    };
    // The last line of the new text so far; at the top, nothing.
    struct Last {
        std::string_view text;
        std::string_view line_end;
    };
    std::string_view line_end_at(std::size_t slot) const;
    Last emit(std::vector<TextEdit>& edits, const Insertion& insertion, const Last& last) const;
    Last emit_replacement(std::vector<TextEdit>& edits, std::size_t line, const std::string& text) const;
    void emit_drop(std::vector<TextEdit>& edits, std::size_t line) const;

    const LineTable& lines_;
    std::vector<bool> dropped_;
    std::vector<std::pair<std::size_t, std::string>> replaced_;
    std::vector<Insertion> insertions_;
};

}  // namespace velk::input::amesp
