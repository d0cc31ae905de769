// Edits of '!' lines in place.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;

Edit add(std::string token) {
    return [=](AIPEditor& editor) { editor.add_method_token(token); };
}

Edit remove(std::string token) {
    return [=](AIPEditor& editor) { editor.remove_method_token(token); };
}

Edit set(std::vector<std::string> tokens) {
    return [=](AIPEditor& editor) { editor.set_method_tokens(tokens); };
}

TEST(MethodLine, LosesOnlyTheRemovedWordAndTheBlanksBeforeIt) {
    expect_edited({
        {"middle", "!  B3-LYP   sto-3g\topt \n", remove("sto-3g"), "!  B3-LYP\topt \n"},
        {"first", "!  B3-LYP   sto-3g\n", remove("b3lyp"), "!   sto-3g\n"},
        {"last", "! hf  sto-3g  \n", remove("sto-3g"), "! hf  \n"},
        {"beside the marker", " !hf  sto-3g opt\n", remove("hf"), " !sto-3g opt\n"},
        {"two beside the marker", "!hf  sto-3g opt\n", set({"opt"}), "!opt\n"},
        {"every one of a name", "! opt hf OPT\n", remove("opt"), "! hf\n"},
        {"a word that begins with the marker", "! !x hf !x\n", remove("hf"), "! !x !x\n"},
        {"beside a word that begins with the marker", "!!hf hf\n", remove("hf"), "!!hf\n"},
        {"the marker's own word", "! ! hf !\n", remove("!"), "! hf\n"},
    });
}

TEST(MethodLine, GoesWithItsLastWord) {
    expect_edited({
        {"only line", "# a\n! hf\n# b\n", remove("hf"), "# a\n# b\n"},
        {"one of two", "! hf\n! opt freq\n", remove("hf"), "! opt freq\n"},
        {"all", "! hf\n\n! opt freq\n", set({}), "\n"},
        {"never an empty one", "!\n! hf\n", remove("hf"), "!\n"},
    });
}

TEST(MethodLine, TakesNewWordsBehindTheOneBefore) {
    expect_edited({
        {"at the end", "! HF\tsto-3g  \n", add("opt"), "! HF\tsto-3g opt  \n"},
        {"in canonical spelling", "! sto-3g\n", add("B3-LYP"), "! sto-3g b3lyp\n"},
        {"unknown ones", "! hf\n", add("XYZZY"), "! hf xyzzy\n"},
        {"of several lines the last", "! hf\n# c\n! opt\n# d\n", add("freq"), "! hf\n# c\n! opt freq\n# d\n"},
        {"in the middle", "! hf   opt\n", set({"hf", "sto-3g", "opt"}), "! hf sto-3g   opt\n"},
        {"in front", "!  sto-3g\n", set({"hf", "sto-3g"}), "!  hf  sto-3g\n"},
        {"in front, beside the marker", "!sto-3g\n", set({"hf", "sto-3g"}), "!hf sto-3g\n"},
    });
}

TEST(MethodLine, KeepsTheBytesOfWordsThatAreSetAgain) {
    expect_edited({
        {"the same", "!  B3-LYP   STO-3G\n", set({"b3lyp", "sto-3g"}), "!  B3-LYP   STO-3G\n"},
        {"one other", "!  B3-LYP   STO-3G  Opt\n", set({"b3lyp", "6-31g", "opt"}), "!  B3-LYP   6-31g  Opt\n"},
        {"one less", "!  B3-LYP   STO-3G  Opt\n", set({"b3lyp", "opt"}), "!  B3-LYP  Opt\n"},
        {"all others", "!  hf   sto-3g\n", set({"b3lyp", "6-31g", "opt"}), "!  b3lyp   6-31g opt\n"},
        {"over several lines", "! HF\n! STO-3G\n! Opt\n", set({"hf", "opt"}), "! HF\n! Opt\n"},
        {"another order", "! HF sto-3g Opt\n", set({"opt", "hf", "sto-3g"}), "! opt HF sto-3g\n"},
    });
}

TEST(MethodLine, IsMadeWhereThereIsNone) {
    expect_edited({
        {"after the last directive", "# a\n% maxcore 1\n# b\n>scf\nend\n", set({"hf", "opt"}),
         "# a\n% maxcore 1\n! hf opt\n# b\n>scf\nend\n"},
        {"before the first section", "# a\n\n>scf\nend\n", add("hf"), "# a\n\n! hf\n>scf\nend\n"},
        {"at the end", "# a\n", add("hf"), "# a\n! hf\n"},
        {"to nothing", "", add("hf"), "! hf\n"},
        {"above the remark on what follows", "# the file\n\n# where from\n; this\n>xyz 0 1\nend\n", set({"hf"}),
         "# the file\n\n! hf\n# where from\n; this\n>xyz 0 1\nend\n"},
        {"below a new directive above the remark", "# why\n>xyz 0 1\nend\n",
         [](AIPEditor& editor) {
             editor.add_method_token("hf");
             editor.set_directive("title", "x");
         },
         "% title x\n! hf\n# why\n>xyz 0 1\nend\n"},
        {"below a new directive", "# a\n",
         [](AIPEditor& editor) {
             editor.add_method_token("hf");
             editor.set_directive("title", "x");
         },
         "# a\n% title x\n! hf\n"},
    });
}

TEST(MethodLine, KeepsWordsThatTheSchemaDoesNotKnowAndThatWereNotRead) {
    const auto text = "! xyzzy HF  plugh opt\n! frob\n";
    EXPECT_EQ(edited_in_place(text, remove("hf"), false).text, "! xyzzy  plugh opt\n! frob\n");
    EXPECT_EQ(edited_in_place(text, set({}), false).text, "! xyzzy  plugh\n! frob\n");
    EXPECT_EQ(edited_in_place(text, add("freq"), false).text, "! xyzzy HF  plugh opt freq\n! frob\n");
}

}  // namespace
}  // namespace velk::test
