// Findings as text: excerpts, marks, and the places that explain them.
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <velk/input/amesp/report.hpp>

namespace velk::test {
namespace {

using namespace input::amesp;

// Of a text, so many bytes of a line from a column on.
TextRange range(std::uint64_t line, std::uint64_t column, std::uint64_t length) {
    return {0, length, {line, column}, {line, column + length}};
}

Diagnostic finding(std::optional<TextRange> place) {
    Diagnostic diagnostic;
    diagnostic.severity = Severity::error;
    diagnostic.code = "a.code";
    diagnostic.message = "what is wrong";
    diagnostic.range = place;
    return diagnostic;
}

std::string report(const std::string& text, const Diagnostic& diagnostic, bool color = false) {
    const std::vector<Diagnostic> findings = {diagnostic};
    return text_report({"f.inp", text, findings}, color);
}

TEST(TextReport, IsEmptyWithoutFindings) {
    EXPECT_EQ(text_report({"f.inp", "! hf\n", {}}, false), "");
}

TEST(TextReport, MarksWhatIsWrong) {
    struct {
        const char* name;
        std::string text;
        TextRange place;
        std::string excerpt;
    } const cases[] = {
        {"one byte", "! hf\n", range(1, 3, 1), "    1 | ! hf\n      |   ^\n"},
        {"more", "! hf\n", range(1, 3, 2), "    1 | ! hf\n      |   ^~\n"},
        {"none", "! hf\n", range(1, 3, 0), "    1 | ! hf\n      |   ^\n"},
        {"after a tab", "\thf\n", range(1, 2, 2), "    1 | \thf\n      | \t^~\n"},
        {"characters of several bytes", "\u00e4\u00f6 hf\n", range(1, 3, 2), "    1 | \u00e4\u00f6 hf\n      |  ^\n"},
        {"past the end", "! hf\n", range(1, 9, 2), "    1 | ! hf\n      |     ^\n"},
        {"what a terminal acts on", "!\033[m hf\n", range(1, 2, 3), "    1 | !?[m hf\n      |  ^~~\n"},
        {"nothing of an empty line", "\nhf\n", range(1, 1, 0), ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(report(c.text, finding(c.place)), "f.inp:" + std::to_string(c.place.start.line) + ":" +
                                                        std::to_string(c.place.start.column) +
                                                        ": error: what is wrong [a.code]\n" + c.excerpt);
    }
}

TEST(TextReport, HasRoomForNumbersOfAnyLength) {
    const std::string text = std::string(99998, '\n') + "! hf\n! hf\n";
    EXPECT_EQ(report(text, finding(range(99999, 3, 2))),
              "f.inp:99999:3: error: what is wrong [a.code]\n99999 | ! hf\n      |   ^~\n");
    EXPECT_EQ(report(text, finding(range(100000, 3, 2))),
              "f.inp:100000:3: error: what is wrong [a.code]\n100000 | ! hf\n       |   ^~\n");
}

TEST(TextReport, ShowsOfALongLineWhatIsAroundThePlace) {
    const std::string many(200, 'a');
    EXPECT_EQ(report(many + "\n", finding(range(1, 1, 1))),
              "f.inp:1:1: error: what is wrong [a.code]\n    1 | " + std::string(160, 'a') + "...\n      | ^\n");
    EXPECT_EQ(report(many + "b\n", finding(range(1, 201, 1))),
              "f.inp:1:201: error: what is wrong [a.code]\n    1 | ..." + std::string(60, 'a') + "b\n      | " +
                  std::string(63, ' ') + "^\n");
    // Not in the middle of a character; of bytes that are no UTF-8, anywhere.
    const std::string wide = "x" + std::string(30, '.') + "\u00e4" + std::string(200, 'a');
    EXPECT_EQ(report(wide, finding(range(1, 93, 1))), "f.inp:1:93: error: what is wrong [a.code]\n    1 | ...\u00e4" +
                                                          std::string(158, 'a') + "...\n      | " +
                                                          std::string(63, ' ') + "^\n");
    const std::string broken = std::string(200, '\x80');
    EXPECT_EQ(report(broken, finding(range(1, 101, 1))), "f.inp:1:101: error: what is wrong [a.code]\n    1 | ..." +
                                                             std::string(160, '?') + "\n      | " +
                                                             std::string(63, ' ') + "^\n");
}

TEST(TextReport, ShowsHelpsThenRelatedPlacesThenWhatFollows) {
    Diagnostic diagnostic = finding(range(2, 1, 2));
    diagnostic.help = {"do this", "or that"};
    diagnostic.related = {{"the first one is here", range(1, 3, 2), {}}, {"somewhere", std::nullopt, {}}};
    diagnostic.causes = {{"b.code", Severity::warning, "it follows", range(3, 1, 1)},
                         {"c.code", Severity::error, "that, too", std::nullopt}};
    EXPECT_EQ(report("! hf\nhf\nx\n", diagnostic),
              "f.inp:2:1: error: what is wrong [a.code]\n"
              "    2 | hf\n"
              "      | ^~\n"
              "      = help: do this\n"
              "      = help: or that\n"
              "f.inp:1:3: note: the first one is here\n"
              "    1 | ! hf\n"
              "      |   ^~\n"
              "f.inp: note: somewhere\n"
              "f.inp:3:1: note: from this: it follows [b.code]\n"
              "f.inp: note: from this: that, too [c.code]\n");
}

TEST(TextReport, ColoursSeveritiesAndMarks) {
    Diagnostic diagnostic = finding(std::nullopt);
    const std::string name = "\033[1mf.inp: \033[0m";
    EXPECT_EQ(report("", diagnostic, true), name + "\033[1;31merror: \033[0mwhat is wrong [a.code]\n");
    diagnostic.severity = Severity::warning;
    EXPECT_EQ(report("", diagnostic, true), name + "\033[1;35mwarning: \033[0mwhat is wrong [a.code]\n");
    diagnostic.severity = Severity::note;
    EXPECT_EQ(report("", diagnostic, true), name + "\033[1;36mnote: \033[0mwhat is wrong [a.code]\n");
    diagnostic.range = range(1, 1, 1);
    EXPECT_EQ(report("a", diagnostic, true),
              "\033[1mf.inp:1:1: \033[0m\033[1;36mnote: \033[0mwhat is wrong [a.code]\n"
              "    1 | a\n      | \033[1;32m^\033[0m\n");
}

}  // namespace
}  // namespace velk::test
