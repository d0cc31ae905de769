// Edits of the lines of key-value sections in place.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;

Edit set(std::string key, std::string value) {
    return [=](AIPEditor& editor) { editor.set_section_entry("scf", key, value); };
}

Edit remove(std::string key) {
    return [=](AIPEditor& editor) { editor.remove_section_entry("scf", key); };
}

TEST(EntryLines, ChangeInTheBytesOfTheValueAlone) {
    expect_edited({
        {"blanks", ">scf\n\tMaxIter   128  \nend\n", set("maxcyc", "50"), ">scf\n\tMaxIter   50  \nend\n"},
        {"=", ">scf\nconv=1e-8\nend\n", set("conv", "1e-6"), ">scf\nconv=1e-6\nend\n"},
        {"= and blanks", ">SCF x\n  conv  =  1e-8\nEND\n", set("conv", "1e-6"), ">SCF x\n  conv  =  1e-6\nEND\n"},
        {"first value", ">scf\n guess \nend\n", set("guess", "core"), ">scf\n guess core \nend\n"},
        {"first value after =", ">scf\n guess =\nend\n", set("guess", "core"), ">scf\n guess = core\nend\n"},
        {"first value right after =, blanks at the end", ">scf\n guess=  \nend\n", set("guess", "core"),
         ">scf\n guess= core  \nend\n"},
        {"no value any more", ">scf\n guess  core \nend\n", set("guess", ""), ">scf\n guess \nend\n"},
        {"nothing after =", ">scf\n guess = core\nend\n", set("guess", ""), ">scf\n guess =\nend\n"},
        {"nothing after =, blanks at the end", ">scf\n guess = core  \nend\n", set("guess", ""),
         ">scf\n guess =  \nend\n"},
        {"the first of two", ">scf\nguess a\nguess b\nend\n", set("guess", "c"), ">scf\nguess c\nguess b\nend\n"},
        {"of two sections the first", ">scf\nguess a\nend\n>scf\nguess b\nend\n", set("guess", "c"),
         ">scf\nguess c\nend\n>scf\nguess b\nend\n"},
        {"a key with blanks that is there", ">scf\nmy key = a\nend\n", set("my key", "b"), ">scf\nmy key = b\nend\n"},
        {"a key that ends in no blank", ">scf\n guess\vx core\nend\n", set("guess", "sad"),
         ">scf\n guess\vx sad\nend\n"},
        {"a first value after that", ">scf\n guess\vx\nend\n", set("guess", "sad"), ">scf\n guess\vx sad\nend\n"},
        {"the same value", ">scf\n  MaxIter=5\nend\n", set("maxcyc", "5"), ">scf\n  MaxIter=5\nend\n"},
    });
}

TEST(EntryLines, SayThatARemarkGoesWithTheValue) {
    const auto said = [](const std::string& remark) {
        return std::vector{"The remark '" + remark + "' was part of the value and goes with it."};
    };
    expect_edited({
        {"#", ">scf\n guess = a   # was b\nend\n", set("guess", "c"), ">scf\n guess = c\nend\n", said("# was b")},
        {";", ">scf\n guess a ;b c\nend\n", set("guess", "c"), ">scf\n guess c\nend\n", said(";b c")},
        {"//", ">scf\n guess a //\nend\n", set("guess", "c"), ">scf\n guess c\nend\n", said("//")},
        {"alone", ">scf\n guess # a\nend\n", set("guess", "c"), ">scf\n guess c\nend\n", said("# a")},
        {"another remark", ">scf\n guess a # b\nend\n", set("guess", "a # c"), ">scf\n guess a # c\nend\n",
         said("# b")},
        {"the new value has it", ">scf\n guess a  # b\nend\n", set("guess", "c # b"), ">scf\n guess c # b\nend\n"},
        {"inside a word it begins none", ">scf\n guess a#b c/d e;\nend\n", set("guess", "c"), ">scf\n guess c\nend\n"},
    });
    const auto result = edited_in_place("\n>scf\n guess a # b\nend\n", set("guess", "c"));
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].severity, input::amesp::IssueSeverity::Warning);
    EXPECT_EQ(result.problems[0].code, "amesp.dropped_words");
    EXPECT_EQ(result.problems[0].location->line, 3U);
}

TEST(EntryLines, SayNothingOfARemarkInALineThatStays) {
    const auto result = edited_in_place(">scf\n guess a # b\nend\n", set("guess", "c\nend"));
    EXPECT_EQ(result.text, ">scf\n guess a # b\nend\n");
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].code, "amesp.not_expressible");
}

TEST(EntryLines, TakeAnEqualsSignWhereTheValueHoldsOne) {
    expect_edited({
        {"changed", ">scf\n  note   x\nend\n", set("note", "a=b"), ">scf\n  note = a=b\nend\n"},
        {"changed, with = already", ">scf\n  note=x\nend\n", set("note", "a=b"), ">scf\n  note=a=b\nend\n"},
        {"added", ">scf\n  guess x\nend\n", set("note", "= 5"), ">scf\n  guess x\n  note = = 5\nend\n"},
        {"a key that would end the section", ">scf\nend 5\nend\n", set("end", ""), ">scf\nend =\nend\n"},
    });
}

TEST(EntryLines, GoWithTheirEntry) {
    expect_edited({
        {"one",
         ">scf\n# a\n guess x # y\n\n conv 1\nend\n",
         remove("guess"),
         ">scf\n# a\n\n conv 1\nend\n",
         {"The remark '# y' was part of the value and goes with it."}},
        {"all of a name", ">scf\n maxiter 1\n conv 1\n maxcyc 2\nend\n", remove("maxcyc"), ">scf\n conv 1\nend\n"},
        {"the last", ">scf\n guess x\nend\n", remove("guess"), ">scf\nend\n"},
    });
}

TEST(EntryLines, AreAddedAfterTheLastInTheStyleOfTheSection) {
    expect_edited({
        {"not like a line whose key ends in no blank", ">scf\n guess\vx core\nend\n", set("note", "y"),
         ">scf\n guess\vx core\n note y\nend\n"},
        {"blanks", ">scf\n\tmaxcyc 1\n# c\nend\n", set("conv", "1"), ">scf\n\tmaxcyc 1\n\tconv 1\n# c\nend\n"},
        {"=", ">scf\n    maxcyc=1\nend\n", set("conv", "1"), ">scf\n    maxcyc=1\n    conv=1\nend\n"},
        {"= and blanks", ">scf\nmaxcyc = 1\nend\n", set("conv", "1"), ">scf\nmaxcyc = 1\nconv = 1\nend\n"},
        {"tab", ">scf\nmaxcyc\t1\nend\n", set("conv", "1"), ">scf\nmaxcyc\t1\nconv\t1\nend\n"},
        {"in columns", ">scf\n  maxcyc 128\n  conv   1e-8\nend\n", set("guess", "core"),
         ">scf\n  maxcyc 128\n  conv   1e-8\n  guess  core\nend\n"},
        {"in columns two blanks after the longest", ">scf\n  conv  1e-8\nend\n", set("guess", "core"),
         ">scf\n  conv  1e-8\n  guess core\nend\n"},
        {"as long as its column", ">scf\n  conv   1e-8\nend\n", set("seventh", "1"),
         ">scf\n  conv   1e-8\n  seventh 1\nend\n"},
        {"too long for its column", ">scf\n  conv   1e-8\nend\n", set("longername", "1"),
         ">scf\n  conv   1e-8\n  longername 1\nend\n"},
        {"in columns of =", ">scf\n  conv   = 1\nend\n", set("maxcyc", "2"), ">scf\n  conv   = 1\n  maxcyc = 2\nend\n"},
        {"the style of the last line with a value", ">scf\n conv=1\n  direct\nend\n", set("guess", "x"),
         ">scf\n conv=1\n  direct\n  guess=x\nend\n"},
        {"without a value", ">scf\n conv = 1\nend\n", set("direct", ""), ">scf\n conv = 1\n direct\nend\n"},
        {"to an empty section", ">scf\n# c\nend\n", set("conv", "1"), ">scf\n# c\n  conv 1\nend\n"},
        {"to a new section", "! hf\n", set("conv", "1"), "! hf\n\n>scf\n  conv 1\nend\n"},
        {"a value with = to a new section", "! hf\n", set("note", "a=b"), "! hf\n\n>scf\n  note = a=b\nend\n"},
    });
}

struct StyleCase {
    std::string name;
    std::string lines;
    std::string key;
    std::string added;  // with the value "x"
};

void expect_styles(const std::vector<StyleCase>& cases) {
    for (const StyleCase& c : cases) {
        const std::string top = ">scf\n" + c.lines;
        expect_edited({{c.name, top + "end\n", set(c.key, "x"), top + c.added + "\nend\n"}});
    }
}

TEST(EntryLines, JoinTheColumnOfTheirSection) {
    expect_styles({
        {"whose longest name is the last", "guess  = a\nmaxcyc = b\n", "damp", "damp   = x"},
        {"the same with blanks", "guess  a\nmaxcyc b\n", "damp", "damp   x"},
        {"of two lines of one length", "conv = a\ndiis = b\n", "xy", "xy   = x"},
        {"of most lines, the last is too long for it", "a   1\nbbb 2\ncccccc 3\n", "dd", "dd  x"},
        {"of most lines, one has a tab", "a   1\nbbb 2\ncccc\t3\n", "dd", "dd  x"},
        {"of most lines, one has no value", "a   = 1\nbbb = 2\ncccccccc\n", "dd", "dd  = x"},
        {"of most lines, one has no blanks", "a   = 1\nbbb = 2\ncccc=3\n", "dd", "dd  = x"},
        {"as often as one separator is repeated", "a  1\nbb 2\nccc 3\n", "d", "d  x"},
        {"of the '=', the values do not stand in one", "a   =  1\nbbb = 2\ncc  = 3\n", "dddd", "dddd = x"},
        {"of the values, the '=' follows each name", "a=   1\nbbb= 2\n", "dd", "dd=  x"},
        {"of the values, the '=' follows after a blank", "a =   1\nbbb = 2\n", "dd", "dd =  x"},
        {"counted from the start of the line", "  a   1\n bbb  2\n  cc  3\n", "dd", "  dd  x"},
        {"alone in it, after two blanks", "maxcyc  1\n", "conv", "conv    x"},
    });
}

TEST(EntryLines, TakeTheSeparatorOfMostLinesWhereThereIsNoColumn) {
    expect_styles({
        {"of one line", "maxcyc = 1\n", "a", "a = x"},
        {"repeated", "maxcyc  1\nconv  2\n", "a", "a  x"},
        {"repeated more often than a column is kept", "conv 1\ndiis 2\nmaxcyc 3\n", "a", "a x"},
        {"repeated, no column at all", "conv=1\nmaxcyc=2\n", "a", "a=x"},
        {"of most", "a=1\nbb=2\nccc = 3\n", "d", "d=x"},
        {"of equally many the last", "a=1\nbbb = 3\n", "d", "d = x"},
        {"with an '=' as most have it", "a=1\nbb=2\nccc  3\n", "d", "d=x"},
        {"without, as most have it", "a = 1\nbb 2\ncccc 3\n", "d", "d x"},
        {"with tabs, which make no column of bytes", "a\t1\nb\t2\n", "ccc", "ccc\tx"},
        {"with blanks and a tab", "a \t1\nb \t2\n", "ccc", "ccc \tx"},
        {"with a tab after the =", "a  =\t1\nbbb  =\t2\n", "c", "c  =\tx"},
    });
}

TEST(EntryLines, AreIndentedAsMostOfTheirSection) {
    expect_styles({
        {"not as the last", "  a 1\n  bb 2\n\tc 3\n", "d", "  d x"},
        {"of equally many as the last", "  a 1\n b 2\n", "d", " d x"},
        {"lines that are too wide do not count",
         std::string(256, ' ') + "a 1\n b 1\n" + std::string(300, ' ') + "c 1\n", "d", " d x"},
        {"lines without a value count", "  a\n  bb\n c 1\n", "d", "  d x"},
    });
}

TEST(EntryLines, AreNotConfusedBySectionsThatWereNotRead) {
    const auto result = edited_in_place(">what\n conv 1\nend\n>scf\n frob 1\n conv 1\nend\n", set("conv", "2"), false);
    EXPECT_EQ(result.text, ">what\n conv 1\nend\n>scf\n frob 1\n conv 2\nend\n");
    EXPECT_TRUE(result.problems.empty());
}

}  // namespace
}  // namespace velk::test
