// Edits written into any text. The first byte chooses whether the unknown is preserved ('0': yes); then the text, and
// after each '^' one edit: a letter for the operation, and its arguments, each after a '|'.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp.hpp>
#include <velk/input/amesp/codes.hpp>

#include "in_place/in_place_laws.hpp"
#include "in_place/in_place_schema.hpp"
#include "law.hpp"
#include "run.hpp"

namespace velk::fuzz {
namespace {

using namespace input::amesp;
using Words = std::vector<std::string>;

Words split(std::string_view text, char separator) {
    Words pieces;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        pieces.emplace_back(text.substr(0, end));
        if (end == text.size()) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

class Edits {
public:
    explicit Edits(AIPEditor& editor) : editor_(editor) {}

    // A new geometry was made; its place among the sections is left open.
    bool new_geometry() const { return new_geometry_; }

    void make(Words words) {
        const char operation = words[0].empty() ? '\0' : words[0][0];
        words.erase(words.begin());
        words_ = std::move(words);
        switch (operation) {
            case 'D':
                return editor_.set_directive(word(0), word(1));
            case 'd':
                return ignore(editor_.remove_directive(word(0)));
            case 'T':
                return editor_.add_method_token(word(0));
            case 't':
                return ignore(editor_.remove_method_token(word(0)));
            case 'M':
                return editor_.set_method_tokens(words_);
            case 'S':
                return upsert_section();
            case 's':
                return ignore(editor_.remove_section(word(0)));
            case 'E':
                note_geometry(word(0));
                return editor_.set_section_entry(word(0), word(1), word(2));
            case 'e':
                return ignore(editor_.remove_section_entry(word(0), word(1)));
            case 'G':
                return set_geometry();
            default:
                return move_atom();
        }
    }

private:
    static void ignore(bool /*removed*/) {}

    std::string word(std::size_t index) const { return index < words_.size() ? words_[index] : std::string(); }
    double real(std::size_t index) const { return std::strtod(word(index).c_str(), nullptr); }
    std::int32_t integer(std::size_t index) const {
        return static_cast<std::int32_t>(std::strtol(word(index).c_str(), nullptr, 10) % 1000);
    }

    bool note_geometry(const std::string& section) {
        const bool geometry = editor_.schema().canonical_section(section) == "xyz";
        new_geometry_ = new_geometry_ || geometry;
        return geometry;
    }

    // Arguments given to a new geometry would contradict its charge and multiplicity, which speak first.
    void upsert_section() {
        const std::string name = word(0);
        Words arguments(words_.begin() + (words_.empty() ? 0 : 1), words_.end());
        if (new_geometry_ && editor_.schema().canonical_section(name) == "xyz") {
            arguments.clear();
        }
        note_geometry(name);
        Section& section = editor_.upsert_section(name, arguments);
        section.terminated = section.terminated || arguments.empty();
    }

    void set_geometry() {
        std::vector<AtomRecord> atoms;
        const Section* const old = editor_.data().coordinate_section();
        if (old != nullptr && integer(0) % 2 == 0) {
            atoms = old->atoms;
        }
        for (std::size_t i = 2; i < words_.size(); i += 4) {
            atoms.insert(atoms.begin() + static_cast<std::ptrdiff_t>(i % (atoms.size() + 1)),
                         {word(i), real(i + 1), real(i + 2), real(i + 3), "", {}});
        }
        new_geometry_ = true;
        editor_.set_xyz_geometry(integer(0), integer(1), std::move(atoms));
    }

    // Through the reference that the editor hands out.
    void move_atom() {
        if (editor_.data().find_section("xyz") == nullptr) {
            return;
        }
        std::vector<AtomRecord>& atoms = editor_.upsert_section("xyz", {}).atoms;
        if (!atoms.empty()) {
            atoms[static_cast<std::size_t>(std::abs(integer(0))) % atoms.size()].y = real(1);
        }
    }

    AIPEditor& editor_;
    Words words_;
    bool new_geometry_ = false;
};

void check_problems(const OverlayResult& result) {
    for (const ValidationIssue& problem : result.problems) {
        const bool error = problem.code == codes::not_expressible || problem.code == codes::not_of_this_text ||
                           problem.code == codes::remark_in_method_line;
        const bool warning = problem.code == codes::dropped_words || problem.code == codes::kept_unit;
        require(error || warning, "a problem has one of five codes", problem.code);
        require(error == (problem.severity == IssueSeverity::Error), "only what is not written is an error",
                problem.message);
    }
}

void check(bool preserve_unknown, const std::string& text, const std::vector<std::string>& edits) {
    const ParseOptions options{preserve_unknown, false};
    const AIPData before = AIPParser::parse_string(text, test::in_place_schema(), options).data;
    AIPEditor editor(before, test::in_place_schema());
    const OverlayResult unchanged = editor.render_over(text, preserve_unknown);
    require(unchanged.text == text && unchanged.problems.empty(), "without edits the text comes back", unchanged.text);

    Edits making(editor);
    for (const std::string& edit : edits) {
        making.make(split(edit, '|'));
    }
    const OverlayResult result = editor.render_over(text, preserve_unknown);
    check_problems(result);
    const std::string broken =
        test::broken_law({text, preserve_unknown, before, editor, making.new_geometry(), result});
    require(broken.empty(), "a law of edits written into a text", broken);

    // Over a text that the document was not read from.
    check_problems(editor.render_over(editor.render(), preserve_unknown));
    check_problems(editor.render_over(std::string(text.rbegin(), text.rend()), !preserve_unknown));
    check_problems(editor.render_over(text.substr(text.size() / 2), preserve_unknown));
}

}  // namespace

void run(const std::string& input) {
    if (input.empty()) {
        return;
    }
    Words edits = split(std::string_view(input).substr(1), '^');
    const std::string text = edits.front();
    edits.erase(edits.begin());
    check((input[0] - '0') % 2 == 0, text, edits);
}

}  // namespace velk::fuzz
