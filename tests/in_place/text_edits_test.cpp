// The edits that write a document into its text: what differs, and no more.
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "in_place/in_place_schema.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

using Edits = std::vector<TextEdit>;

template <class Change>
TextEdits edits_of(const std::string& text, Change change) {
    AIPEditor editor(AIPParser::parse_string(text, in_place_schema(), {true, false}).data, in_place_schema());
    change(editor);
    const OverlayResult whole = editor.render_over(text);
    TextEdits edits = editor.text_edits(text);
    EXPECT_EQ(apply(text, edits.edits), whole.text);
    EXPECT_EQ(edits.problems, whole.problems);
    return edits;
}

auto directive(const char* name, const char* value) {
    return [=](AIPEditor& editor) { editor.set_directive(name, value); };
}

TEST(TextEdits, AreNoneWithoutEdits) {
    EXPECT_EQ(edits_of("% maxcore 1\n", directive("maxcore", "1")).edits, Edits());
    EXPECT_EQ(edits_of("", [](AIPEditor&) {}).edits, Edits());
}

TEST(TextEdits, OfAChangedLineAreItsCharactersThatDiffer) {
    EXPECT_EQ(edits_of("% maxcore 100 \n", directive("maxcore", "200")).edits, (Edits{{10, 1, "2"}}));
    EXPECT_EQ(edits_of("% maxcore 10\n", directive("maxcore", "110")).edits, (Edits{{11, 0, "1"}}));
    EXPECT_EQ(edits_of("% maxcore 1\n", directive("maxcore", "11")).edits, (Edits{{11, 0, "1"}}));
    EXPECT_EQ(edits_of("% maxcore 110\n", directive("maxcore", "10")).edits, (Edits{{11, 1, ""}}));
}

TEST(TextEdits, HoldWholeCharacters) {
    // U+00E4 and U+00F6 begin with the same byte, U+00E4 and U+0124 end with the same one.
    EXPECT_EQ(edits_of("% title a\u00e4b\n", directive("title", "a\u00f6b")).edits, (Edits{{9, 2, "\u00f6"}}));
    EXPECT_EQ(edits_of("% title a\u00e4b\n", directive("title", "a\u0124b")).edits, (Edits{{9, 2, "\u0124"}}));
    EXPECT_EQ(edits_of("% title \u00e4\n", directive("title", "\u00e4\u00e4")).edits, (Edits{{10, 0, "\u00e4"}}));
    // Continuation bytes alone: the whole of what differs, and what is before it.
    EXPECT_EQ(edits_of("% title \x80\x80\x81\n", directive("title", "\x80\x80\x82")).edits,
              (Edits{{7, 4, " \x80\x80\x82"}}));
}

TEST(TextEdits, TakeLinesThatFollowEachOtherOutAtOnce) {
    const auto remove = [](AIPEditor& editor) {
        editor.remove_directive("maxcore");
        editor.remove_directive("nprocs");
        editor.remove_section("scf");
    };
    EXPECT_EQ(edits_of("% maxcore 1\n% nprocs 2\n! hf\n>scf\nend\n! opt", remove).edits,
              (Edits{{0, 23, ""}, {28, 9, ""}}));
}

TEST(TextEdits, AddLinesOfOnePlaceAtOnce) {
    const auto add = [](AIPEditor& editor) {
        editor.set_directive("nprocs", "2");
        editor.set_directive("title", "x");
        editor.set_directive("maxcore", "3");
    };
    EXPECT_EQ(edits_of("% maxcore 1\n! hf\n", add).edits, (Edits{{10, 1, "3"}, {12, 0, "% nprocs 2\n% title x\n"}}));
    EXPECT_EQ(edits_of("% maxcore 1", add).edits, (Edits{{10, 1, "3"}, {11, 0, "\n% nprocs 2\n% title x\n"}}));
    EXPECT_EQ(edits_of("% maxcore", add).edits, (Edits{{9, 0, " 3\n% nprocs 2\n% title x\n"}}));
}

TEST(TextEdits, HaveTheProblemsOfTheWholeText) {
    const TextEdits edits = edits_of("% title x\n", directive("title", "x\ny"));
    EXPECT_EQ(edits.edits, Edits());
    ASSERT_EQ(edits.problems.size(), 1U);
    EXPECT_EQ(edits.problems[0].code, "amesp.not_expressible");
}

}  // namespace
}  // namespace velk::test
