// Comments, directives, method lines and loose lines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/locale_guard.hpp"
#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;
using test::codes;
using test::parse;
using test::parse_known;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Parser, MakesNothingOfEmptyOrBlankText) {
    for (const char* const text : {"", "\n", "  \n\t\r\n\v\f\n  "}) {
        EXPECT_EQ(parse(text), AIPData()) << text;
    }
}

TEST(Parser, TellsCommentsBeforeTheFirstContentFromLaterOnes) {
    const AIPData data = parse("  # title \n\n// two\n;three\n! b3lyp 6-31g*\n# note\n\t;more");
    EXPECT_THAT(data.header_comments, ElementsAre("  # title ", "// two", ";three"));
    EXPECT_THAT(data.preserved_lines, ElementsAre("# note", "\t;more"));
    EXPECT_THAT(data.warnings, IsEmpty());
}

TEST(Parser, CountsAnyOtherLineAsContent) {
    for (const char* const line : {"%", "!", ">", "loose", "% a", "/", "- #"}) {
        const AIPData data = parse(line + "\n# after"s);
        EXPECT_THAT(data.header_comments, IsEmpty()) << line;
        EXPECT_EQ(data.preserved_lines.back(), "# after") << line;
    }
}

TEST(Parser, KeepsLooseLinesAndReportsEachOfThem) {
    const AIPData data = parse("\n  loose one \n/ two\nend\n");
    EXPECT_THAT(data.preserved_lines, ElementsAre("  loose one ", "/ two", "end"));
    ASSERT_EQ(data.warnings.size(), 3U);
    EXPECT_EQ(data.warnings[0], (ParseWarning{"amesp.loose_line",
                                              "Preserved a line outside any AMESP directive, method line, or section.",
                                              SourceLocation{2, 1, 0}}));
    EXPECT_THAT(codes(data.warnings), ElementsAre("amesp.loose_line@2", "amesp.loose_line@3", "amesp.loose_line@4"));
}

TEST(Parser, DropsLooseLinesButReportsThemWhenUnknownContentIsNotKept) {
    const AIPData data = parse_known("loose\n# comment");
    EXPECT_THAT(data.preserved_lines, ElementsAre("# comment"));
    EXPECT_THAT(codes(data.warnings), ElementsAre("amesp.loose_line@1"));
}

struct DirectiveCase {
    std::string line;
    Directive expected;
};

TEST(Parser, ReadsDirectives) {
    const DirectiveCase cases[] = {
        {"% maxcyc 2000", {"maxcyc", "2000", true, SourceLocation{1, 1, 13}}},
        {"%MAXIT\t 5  ", {"maxcyc", "5", true, SourceLocation{1, 1, 9}}},
        {"  %  charge = 0 ", {"charge", "= 0", false, SourceLocation{1, 3, 13}}},
        {"%x", {"x", "", false, SourceLocation{1, 1, 2}}},
        {"% a  b   c ", {"a", "b   c", false, SourceLocation{1, 1, 10}}},
        {"%a=5", {"a=5", "", false, SourceLocation{1, 1, 4}}},
        {"%%", {"%", "", false, SourceLocation{1, 1, 2}}},
        {"% a # no comment", {"a", "# no comment", false, SourceLocation{1, 1, 16}}},
        {"% A\xc4 \xe4\xff", {"a\xc4", "\xe4\xff", false, SourceLocation{1, 1, 7}}},
        {"% a \0b"s, {"a", "\0b"s, false, SourceLocation{1, 1, 6}}},
        // A value comes after the first blank or tab, wherever the name ends.
        {"% a\rb", {"a", "", false, SourceLocation{1, 1, 5}}},
        {"% a\vb c", {"a", "c", false, SourceLocation{1, 1, 7}}},
        {"% a\r\tb", {"a", "b", false, SourceLocation{1, 1, 6}}},
        {"%\va\f b\rc", {"a", "b\rc", false, SourceLocation{1, 1, 8}}},
    };
    for (const DirectiveCase& c : cases) {
        const AIPData data = parse(c.line);
        ASSERT_EQ(data.directives.size(), 1U) << c.line;
        EXPECT_EQ(data.directives[0], c.expected) << c.line;
        EXPECT_THAT(data.warnings, IsEmpty());
    }
}

TEST(Parser, IgnoresAnEmptyDirectiveWithAWarning) {
    const AIPData data = parse("\n %  \n");
    EXPECT_THAT(data.directives, IsEmpty());
    EXPECT_THAT(data.warnings, ElementsAre(ParseWarning{"amesp.empty_directive", "Ignored an empty '%' directive.",
                                                        SourceLocation{2, 1, 0}}));
}

TEST(Parser, DropsUnknownDirectivesSilentlyWhenUnknownContentIsNotKept) {
    const AIPData data = parse_known("% other 1\n% maxit 2");
    ASSERT_EQ(data.directives.size(), 1U);
    EXPECT_EQ(data.directives[0].name, "maxcyc");
    EXPECT_THAT(data.warnings, IsEmpty());
}

TEST(Parser, ReadsMethodTokensWithTheirPlaces) {
    const AIPData data = parse("  ! hf  STO-3G\tUb3-LYP other");
    EXPECT_THAT(data.method_tokens,
                ElementsAre(MethodToken{"hf", "hf", "method", true, SourceLocation{1, 5, 2}},
                            MethodToken{"STO-3G", "sto-3g", "basis", true, SourceLocation{1, 9, 6}},
                            MethodToken{"Ub3-LYP", "ub3lyp", "uks", true, SourceLocation{1, 16, 7}},
                            MethodToken{"other", "other", "other", false, SourceLocation{1, 24, 5}}));
    EXPECT_EQ(parse("  ! hf  sto-3g").method_tokens[1].location, (SourceLocation{1, 9, 6}));
}

struct ColumnsCase {
    std::string line;
    std::vector<std::uint64_t> columns;
};

// Tokens are searched for in the whole line, its marker included, each after the one before.
TEST(Parser, SearchesTokensFromTheStartOfTheLine) {
    const ColumnsCase cases[] = {{"!hf hf", {2, 5}},      {"! !", {1}},      {"!!", {1}},
                                 {"! ! !", {1, 3}},       {"!!x", {2}},      {"!!! !", {1, 3}},
                                 {"! a ab a", {3, 5, 8}}, {"! ab a", {3, 6}}};
    for (const ColumnsCase& c : cases) {
        std::vector<std::uint64_t> columns;
        for (const MethodToken& token : parse(c.line).method_tokens) {
            columns.push_back(token.location->column);
        }
        EXPECT_EQ(columns, c.columns) << c.line;
    }
}

TEST(Parser, MergesMethodLinesAndReportsEachAfterTheFirst) {
    const AIPData data = parse("! hf\n\n\n! sto-3g\n! x");
    EXPECT_EQ(data.method_tokens.size(), 3U);
    EXPECT_THAT(
        data.warnings,
        ElementsAre(ParseWarning{"amesp.multiple_method_lines",
                                 "Multiple AMESP method lines were merged in input order.", SourceLocation{4, 1, 0}},
                    ParseWarning{"amesp.multiple_method_lines",
                                 "Multiple AMESP method lines were merged in input order.", SourceLocation{5, 1, 0}}));
}

TEST(Parser, ReportsAMethodLineWithoutTokens) {
    const AIPData data = parse("! \n! hf\n!");
    EXPECT_EQ(data.method_tokens.size(), 1U);
    EXPECT_THAT(data.warnings,
                ElementsAre(ParseWarning{"amesp.empty_method_line", "The AMESP method line contains no tokens.",
                                         SourceLocation{1, 1, 0}},
                            ParseWarning{"amesp.empty_method_line", "The AMESP method line contains no tokens.",
                                         SourceLocation{3, 1, 0}}));
}

TEST(Parser, DoesNotCountAMethodLineWhoseTokensWereAllDropped) {
    const AIPData data = parse_known("! unknown\n! hf unknown2");
    ASSERT_EQ(data.method_tokens.size(), 1U);
    EXPECT_EQ(data.method_tokens[0].location, (SourceLocation{2, 3, 2}));
    EXPECT_THAT(data.warnings, IsEmpty());
}

TEST(Parser, ReadsTheSameInEveryLocale) {
    const std::string text = "! HF STO-3G\n% MAXIT 1\n>XYZ 0 1\nN 1.5 2.5D0 -1,5\nI 1.5 0 0\nEND\n";
    const AIPData expected = parse(text);
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        EXPECT_EQ(parse(text), expected) << name;
    }
}

TEST(Parser, ReadsAllLineEndsAlike) {
    const std::string lf = "# t\n% maxcyc 1\n! hf\n>scf\n conv 1\n\n# c\nend\n>xyz 0 1\nH 0 0 0\nend\nloose\n";
    std::string crlf;
    for (const char c : lf) {
        crlf += c == '\n' ? "\r\n" : std::string(1, c);
    }
    EXPECT_EQ(parse(crlf), parse(lf));
    EXPECT_EQ(parse(lf.substr(0, lf.size() - 1)), parse(lf));
}

}  // namespace
}  // namespace velk::input::amesp
