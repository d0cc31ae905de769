// '!' lines that hold a remark, whose words are tokens to the format.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPData;
using input::amesp::AIPEditor;
using input::amesp::IssueSeverity;
using input::amesp::OverlayResult;
using Words = std::vector<std::string>;

const std::string remarked = "! hf  sto-3g  # first try\n";

Edit add(Words tokens) {
    return [=](AIPEditor& editor) {
        for (const std::string& token : tokens) {
            editor.add_method_token(token);
        }
    };
}

Edit set(Words tokens) {
    return [=](AIPEditor& editor) { editor.set_method_tokens(tokens); };
}

TEST(RemarkInMethodLine, RefusesANewWordWithTheReasonAndTheWayOut) {
    const OverlayResult result = edited_in_place("% title x\n" + remarked, add({"Opt"}));
    EXPECT_EQ(result.text, "% title x\n" + remarked);
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].severity, IssueSeverity::Error);
    EXPECT_EQ(result.problems[0].code, "amesp.remark_in_method_line");
    EXPECT_EQ(result.problems[0].message,
              "Method-line token 'Opt' was not added: the line holds a remark, whose words are method-line tokens to "
              "the format; move the remark to a line of its own above.");
    EXPECT_EQ(result.problems[0].location, (input::amesp::SourceLocation{2, 15, 1}));
}

struct Refused {
    std::string name;
    std::string text;
    Edit edit;
    std::size_t problems;
};

TEST(RemarkInMethodLine, RefusesNewWordsWhereverTheyWouldStand) {
    const Refused cases[] = {
        {"each one", remarked, add({"opt", "freq"}), 2},
        {"at the end of a later line", "! opt\n! hf #note\n", add({"freq"}), 1},
        {"right before it", remarked, set({"hf", "sto-3g", "opt", "#", "first", "try"}), 1},
        {"in front", remarked, set({"opt", "hf", "sto-3g", "#", "first", "try"}), 1},
        {"beside the marker", "!#hf\n", add({"freq"}), 1},
    };
    for (const Refused& c : cases) {
        SCOPED_TRACE(c.name);
        const OverlayResult result = edited_in_place(c.text, c.edit);
        EXPECT_EQ(result.text, c.text);
        EXPECT_EQ(result.problems.size(), c.problems);
    }
}

TEST(RemarkInMethodLine, RefusesNewWordsAlsoWhenItWasNotRead) {
    const OverlayResult result = edited_in_place(remarked, add({"opt"}), false);
    EXPECT_EQ(result.text, remarked);
    EXPECT_EQ(result.problems.size(), 1U);
}

TEST(RemarkInMethodLine, LeavesOtherEditsToBeWritten) {
    const OverlayResult result = edited_in_place(remarked, [](AIPEditor& editor) {
        editor.remove_method_token("hf");
        editor.add_method_token("opt");
        editor.set_directive("title", "x");
    });
    EXPECT_EQ(result.text, "% title x\n!  sto-3g  # first try\n");
    EXPECT_EQ(result.problems.size(), 1U);
}

TEST(RemarkInMethodLine, IsNoneWhereNoWordThatStaysBeginsSo) {
    expect_edited({
        {"in the word", "! hf a#\n", add({"opt"}), "! hf a# opt\n"},
        {"in another line", "! hf # note\n! sto-3g\n", add({"opt"}), "! hf # note\n! sto-3g opt\n"},
        {"above", "# note\n! hf\n", add({"opt"}), "# note\n! hf opt\n"},
        {"new itself", "! hf\n", add({"#", "note"}), "! hf # note\n"},
        {"removed", remarked,
         [](AIPEditor& editor) {
             for (const char* const word : {"#", "first", "try"}) {
                 editor.remove_method_token(word);
             }
             editor.add_method_token("opt");
         },
         "! hf  sto-3g opt\n"},
    });
}

TEST(RemarkInMethodLine, LetsWordsChangeAndGo) {
    expect_edited({
        {"gone", remarked, [](AIPEditor& editor) { editor.remove_method_token("hf"); }, "!  sto-3g  # first try\n"},
        {"all but the remark", "! hf #note\n", [](AIPEditor& editor) { editor.remove_method_token("hf"); },
         "! #note\n"},
        {"another", remarked,
         [](AIPEditor& editor) {
             AIPData data = editor.data();
             data.method_tokens[0].canonical = "b3lyp";
             editor.set_data(data);
         },
         "! b3lyp  sto-3g  # first try\n"},
        {"another of a list set anew", remarked, set({"hf", "6-31g", "#", "first", "try"}),
         "! hf  6-31g  # first try\n"},
    });
}

TEST(RemarkInMethodLine, GoesWhenTheTokensAreSetAnew) {
    expect_edited({
        {"fewer", remarked, set({"b3lyp", "6-31g"}), "! b3lyp  6-31g\n"},
        {"as many", remarked, set({"b3lyp", "6-31g", "opt", "freq", "d3bj"}), "! b3lyp  6-31g  opt freq d3bj\n"},
        {"more", "! hf #note\n", set({"b3lyp", "6-31g", "opt"}), "! b3lyp 6-31g opt\n"},
        {"more before a word that stays", "! hf #note sto-3g\n", set({"opt", "b3lyp", "freq", "sto-3g"}),
         "! opt b3lyp freq sto-3g\n"},
        {"more before the place of the remark", "! hf #note\n", set({"opt", "hf", "freq"}), "! opt hf freq\n"},
        {"by another one", "! hf #note\n", set({"hf", "#other", "opt"}), "! hf #other opt\n"},
    });
}

}  // namespace
}  // namespace velk::test
