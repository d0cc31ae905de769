// Edits of '%' lines in place.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;

Edit set(std::string name, std::string value) {
    return [=](AIPEditor& editor) { editor.set_directive(name, value); };
}

Edit remove(std::string name) {
    return [=](AIPEditor& editor) { editor.remove_directive(name); };
}

TEST(DirectiveLines, ChangeInTheBytesOfTheValueAlone) {
    expect_edited({
        {"value", "% maxcore 2000\n", set("maxcore", "4000"), "% maxcore 4000\n"},
        {"spelling and columns stay", "  %  Memory\t2000  \n", set("maxcore", "4000"), "  %  Memory\t4000  \n"},
        {"several words", "% title one  two\n", set("title", "three"), "% title three\n"},
        {"first value", "% title\n", set("title", "x"), "% title x\n"},
        {"first value, blanks after the name", "% title  \n", set("title", "x"), "% title x  \n"},
        {"no value any more", "% title  x y \n", set("title", ""), "% title \n"},
        {"a value that begins with =", "% title x\n", set("title", "= 0"), "% title = 0\n"},
        {"the first of two", "% title a\n% title b\n", set("title", "c"), "% title c\n% title b\n"},
        {"a name that ends in no blank", "% title\vx y\n", set("title", "z"), "% title\vx z\n"},
        {"a first value after that", "% title\vx\n", set("title", "z"), "% title\vx z\n"},
        {"no value after that", "% title\vx y\n", set("title", ""), "% title\vx\n"},
        {"the same value", "% Title   a\n", set("title", "a"), "% Title   a\n"},
    });
}

TEST(DirectiveLines, GoWithTheirDirective) {
    expect_edited({
        {"one", "# a\n% title x\n# b\n", remove("title"), "# a\n# b\n"},
        {"all of a name, under an alias too", "% memory 1\n\n% maxcore 2\n! hf\n", remove("maxcore"), "\n! hf\n"},
        {"the last line, without line end", "! hf\n% title x", remove("title"), "! hf\n"},
    });
}

TEST(DirectiveLines, SayThatARemarkGoesWithTheValue) {
    const std::vector<std::string> said{"The remark '# MB' was part of the value and goes with it."};
    expect_edited({
        {"changed", "% maxcore 2000 # MB\n", set("maxcore", "3000"), "% maxcore 3000\n", said},
        {"removed", "% maxcore 2000 # MB\n! hf\n", remove("maxcore"), "! hf\n", said},
        {"none", "% maxcore 2000 MB\n! hf\n", remove("maxcore"), "! hf\n"},
    });
}

TEST(DirectiveLines, AreAddedBehindTheLastOne) {
    expect_edited({
        {"after the last", "% maxcore 1\n# c\n% nprocs 2\n# d\n! hf\n", set("title", "x"),
         "% maxcore 1\n# c\n% nprocs 2\n% title x\n# d\n! hf\n"},
        {"above the method line", "# c\n\n! hf\n", set("title", "x"), "# c\n\n% title x\n! hf\n"},
        {"above an empty method line", "# c\n\n!\n", set("title", "x"), "# c\n\n% title x\n!\n"},
        {"before the first section", "# c\n\n>scf\nend\n", set("title", "x"), "# c\n\n% title x\n>scf\nend\n"},
        {"at the end", "# c\n", set("title", "x"), "# c\n% title x\n"},
        {"to nothing", "", set("title", "x"), "% title x\n"},
        {"without a value", "! hf\n", set("Title", " "), "% title\n! hf\n"},
        {"after a section", ">scf\nend\n% nprocs 2\n", set("title", "x"), ">scf\nend\n% nprocs 2\n% title x\n"},
        {"a '%' line in a section is none", ">notes\n% a\nend\n! hf\n", set("title", "x"),
         ">notes\n% a\nend\n% title x\n! hf\n"},
        {"a '>' line without a name begins no section", ">\n! hf\n", set("title", "x"), ">\n% title x\n! hf\n"},
        {"in order", "! hf\n",
         [](AIPEditor& editor) {
             editor.set_directive("a", "1");
             editor.set_directive("b", "2");
         },
         "% a 1\n% b 2\n! hf\n"},
        {"where the removed last one stood", "% maxcore 1\n% nprocs 2\n# c\n! hf\n",
         [](AIPEditor& editor) {
             editor.remove_directive("nprocs");
             editor.set_directive("title", "x");
         },
         "% maxcore 1\n% title x\n# c\n! hf\n"},
    });
}

TEST(DirectiveLines, AreAddedAboveTheRemarkThatBelongsToWhatFollows) {
    expect_edited({
        {"to the method line", "# the file\n\n# why\n  ; this\n! hf\n", set("title", "x"),
         "# the file\n\n% title x\n# why\n  ; this\n! hf\n"},
        {"to the first section", "# the file\n\n// where from\n>xyz 0 1\nend\n", set("title", "x"),
         "# the file\n\n% title x\n// where from\n>xyz 0 1\nend\n"},
        {"at the top", "# why\n! hf\n", set("title", "x"), "% title x\n# why\n! hf\n"},
        {"not to a loose line", "# a\nloose\n! hf\n", set("title", "x"), "# a\nloose\n% title x\n! hf\n"},
        {"nor to what follows a section", ">notes\n# a\nend\n! hf\n", set("title", "x"),
         ">notes\n# a\nend\n% title x\n! hf\n"},
    });
}

TEST(DirectiveLines, AreAddedInTheStyleOfTheOthers) {
    expect_edited({
        {"blanks before the name, values in a column", "%  MaxCore   2000\n%  NProcs    4\n", set("title", "x"),
         "%  MaxCore   2000\n%  NProcs    4\n%  title     x\n"},
        {"no blank before the name", "%maxcore 1\n%nprocs 2\n", set("title", "x"), "%maxcore 1\n%nprocs 2\n%title x\n"},
        {"indented", "\t% maxcore 1\n", set("title", "x"), "\t% maxcore 1\n\t% title x\n"},
        {"a value that begins with =", "% a = 1\n", set("title", "x"), "% a = 1\n% title x\n"},
        {"without a value", "%  maxcore  1\n", set("title", ""), "%  maxcore  1\n%  title\n"},
        {"none has a value", "%  a\n", set("title", "x"), "%  a\n%  title x\n"},
        {"other white space is no separator", "% maxcore\vx 1\n", set("title", "x"), "% maxcore\vx 1\n% title x\n"},
    });
}

TEST(DirectiveLines, StayWhenTheSchemaDoesNotKnowThemAndTheyWereNotRead) {
    const auto result = edited_in_place("% colour blue\n% maxcore 1\n! hf\n", set("maxcore", "2"), false);
    EXPECT_EQ(result.text, "% colour blue\n% maxcore 2\n! hf\n");
    EXPECT_TRUE(result.problems.empty());
}

}  // namespace
}  // namespace velk::test
