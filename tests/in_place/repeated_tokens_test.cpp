// Edits of method tokens that stand in the text several times: every text of up to three method lines with up to four
// words over three spellings of two tokens, under every edit of a short list of them.
#include "in_place/edited_in_place.hpp"
#include "in_place/token_laws.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;
using Words = std::vector<std::string>;

struct NamedEdit {
    std::string name;
    Edit run;
};

std::vector<NamedEdit> single_edits() {
    std::vector<NamedEdit> edits;
    for (const std::string token : {"hf", "opt"}) {
        edits.push_back({"remove " + token, [=](AIPEditor& editor) { editor.remove_method_token(token); }});
    }
    for (const std::string token : {"hf", "Opt", "Freq"}) {
        edits.push_back({"add " + token, [=](AIPEditor& editor) { editor.add_method_token(token); }});
    }
    return edits;
}

// Every list of up to three words.
std::vector<Words> lists_of(const Words& words) {
    std::vector<Words> lists = {{}};
    for (std::size_t i = 0; lists[i].size() < 3; ++i) {
        for (const std::string& word : words) {
            lists.push_back(lists[i]);
            lists.back().push_back(word);
        }
    }
    return lists;
}

std::vector<NamedEdit> all_edits() {
    std::vector<NamedEdit> edits = single_edits();
    for (const NamedEdit& first : single_edits()) {
        for (const NamedEdit& second : single_edits()) {
            edits.push_back({first.name + ", " + second.name, [=](AIPEditor& editor) {
                                 first.run(editor);
                                 second.run(editor);
                             }});
        }
    }
    for (const Words& list : lists_of({"HF", "opt", "Freq"})) {
        std::string name = "set";
        for (const std::string& word : list) {
            name += ' ' + word;
        }
        edits.push_back({name, [=](AIPEditor& editor) { editor.set_method_tokens(list); }});
    }
    return edits;
}

// Calls `visit` with every way to add words to a text that has some.
template <class Visit>
void for_each_longer(std::vector<TokenPiece>& pieces, Visit visit) {
    constexpr std::size_t most_words = 4;
    if (pieces.size() == most_words) {
        return;
    }
    const std::size_t line = pieces.empty() ? 0 : pieces.back().line;
    for (std::size_t in_line = line; in_line <= line + (pieces.empty() ? 0U : 1U) && in_line < 3; ++in_line) {
        for (const char* const word : {"hf", "OPT", "opt"}) {
            pieces.push_back({in_line, first_token_gap + pieces.size(), word});
            visit(pieces);
            for_each_longer(pieces, visit);
            pieces.pop_back();
        }
    }
}

std::string outcome(const std::vector<TokenPiece>& pieces, const NamedEdit& edit) {
    const std::string text = text_of_pieces(pieces);
    const AIPData before = AIPParser::parse_string(text, in_place_schema(), {true, false}).data;
    AIPEditor editor(before, in_place_schema());
    edit.run(editor);
    const OverlayResult result = editor.render_over(text);
    const std::string broken = result.problems.empty() ? broken_token_law(pieces, before, editor.data(), result.text)
                                                       : result.problems.front().message;
    return broken.empty() ? broken : broken + "\n" + text + edit.name + "\n" + result.text;
}

TEST(RepeatedTokens, StayAsTheyAreUnlessTouched) {
    const std::vector<NamedEdit> edits = all_edits();
    std::size_t cases = 0;
    std::string broken;
    std::vector<TokenPiece> none;
    for_each_longer(none, [&](const std::vector<TokenPiece>& pieces) {
        for (auto edit = edits.begin(); edit != edits.end() && broken.empty(); ++edit) {
            broken = outcome(pieces, *edit);
            ++cases;
        }
    });
    EXPECT_EQ(broken, "");
    EXPECT_EQ(cases, (3U + 9 * 2 + 27 * 4 + 81 * 7) * (5 + 25 + 40));
}

}  // namespace
}  // namespace velk::test
