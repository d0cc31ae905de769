// Line ends and unusual texts: what stays, and what inserted lines take.
#include <velk/input/amesp/editor.hpp>

#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;

Edit directive(std::string value) {
    return [=](AIPEditor& editor) { editor.set_directive("title", value); };
}

Edit section() {
    return [](AIPEditor& editor) { editor.upsert_section("scf", {}); };
}

TEST(LineEnds, StayOnEveryLineThatStays) {
    expect_edited({
        {"CRLF", "% title a\r\n! hf\r\n", directive("b"), "% title b\r\n! hf\r\n"},
        {"mixed", "# a\n% title a\r\n! hf\n", directive("b"), "# a\n% title b\r\n! hf\n"},
        {"none at the end", "! hf\n% title a", directive("b"), "! hf\n% title b"},
        {"a lone carriage return at the end", "% title a\r", directive("b"), "% title b\r"},
        {"carriage returns in a line", "% title a\rb\n", directive("c\rd"), "% title c\rd\n"},
    });
}

TEST(LineEnds, OfInsertedLinesAreThoseOfTheLineBefore) {
    expect_edited({
        {"CRLF", "% nprocs 1\r\n! hf\n", directive("x"), "% nprocs 1\r\n% title x\r\n! hf\n"},
        {"LF", "% nprocs 1\n! hf\r\n", directive("x"), "% nprocs 1\n% title x\n! hf\r\n"},
        {"at the top: of the line after", "! hf\r\n", directive("x"), "% title x\r\n! hf\r\n"},
        {"at the top of a line without one", "! hf", directive("x"), "% title x\n! hf"},
        {"after a last line without one", "! hf\r\n>opt\r\nend", section(),
         "! hf\r\n>opt\r\nend\r\n\r\n>scf\r\nend\r\n"},
        {"after a second line without one", "# a\r\n! hf", section(), "# a\r\n! hf\r\n\r\n>scf\r\nend\r\n"},
        {"after an only line without one", "# a", directive("x"), "# a\n% title x\n"},
        {"after a last carriage return", "! hf\r", section(), "! hf\r\n\r\n>scf\r\nend\r\n"},
    });
}

TEST(LineEnds, AreLeftToTheLineBeforeWhenTheLastLineGoes) {
    expect_edited({
        {"last line", "! hf\r\n% title x", [](AIPEditor& editor) { editor.remove_directive("title"); }, "! hf\r\n"},
        {"last line, with one in its place", "! hf\n% nprocs 1",
         [](AIPEditor& editor) {
             editor.remove_directive("nprocs");
             editor.set_directive("title", "x");
         },
         "! hf\n% title x\n"},
    });
}

TEST(Texts, ComeBackAsTheyAreWithoutEdits) {
    const std::string nul("% title a\0b\n! \0\n>scf\n \0 = \0\nend\n", 33);
    const std::vector<std::string> texts = {"",
                                            "\n",
                                            "\r\n\r\n",
                                            "\r",
                                            "loose\n%\n!\n>\n",
                                            "!! ! hf !hf\n",
                                            ">scf\n = 5\n a = b = c\n\n# x\nend of data\n",
                                            ">xyz 0 1\n>scf\nH 1d0 nan inf x\nH 1\n",
                                            "\v\f% title\vx\n",
                                            "% title \xc3\xa4\xff\n",
                                            nul};
    for (const std::string& text : texts) {
        for (const bool preserve_unknown : {true, false}) {
            const auto result = edited_in_place(
                text, [](AIPEditor&) {}, preserve_unknown);
            EXPECT_EQ(result.text, text);
            EXPECT_TRUE(result.problems.empty()) << text;
        }
    }
}

}  // namespace
}  // namespace velk::test
