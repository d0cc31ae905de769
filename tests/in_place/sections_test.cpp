// Sections that come, go or change their header.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;
using input::amesp::Section;

Edit upsert(std::string name, std::vector<std::string> arguments) {
    return [=](AIPEditor& editor) { editor.upsert_section(name, arguments); };
}

Edit remove(std::string name) {
    return [=](AIPEditor& editor) { editor.remove_section(name); };
}

TEST(SectionLines, GoFromTheHeaderToTheEnd) {
    expect_edited({
        {"one", "# a\n\n>scf\n# b\n conv 1\nEnd\n# c\n", remove("scf"), "# a\n# c\n"},
        {"all of a name", ">notes\nx\nend\n! hf\n>NOTES\ny\nend\n", remove("notes"), "! hf\n"},
        {"a name of one letter", ">a\nx\nend\n! hf\n", remove("a"), "! hf\n"},
        {"without an end", "! hf\n>scf\n conv 1\n", remove("scf"), "! hf\n"},
    });
}

TEST(SectionLines, AreAddedAtTheEndAfterOneBlankLine) {
    const Edit full = [](AIPEditor& editor) {
        Section& section = editor.upsert_section("Opt", {"a", "b"});
        section.entries.push_back({"conv", "tight", true, "", {}});
        section.raw_lines = {"", "# why"};
    };
    expect_edited({
        {"empty", "! hf\n", upsert("SCF", {}), "! hf\n\n>scf\nend\n"},
        {"full", "! hf\n", full, "! hf\n\n>opt a b\n  conv tight\n\n  # why\nend\n"},
        {"after a blank line", "! hf\n  \n", upsert("scf", {}), "! hf\n  \n>scf\nend\n"},
        {"after a comment alone", "# hi\n", upsert("scf", {}), "# hi\n\n>scf\nend\n"},
        {"to nothing", "", upsert("scf", {}), ">scf\nend\n"},
        {"to one blank line", "\n", upsert("scf", {}), "\n>scf\nend\n"},
        {"unknown ones", "! hf\n", upsert("Frob", {"X"}), "! hf\n\n>frob X\nend\n"},
        {"in the place of a removed one", "! hf\n\n>scf\nend\n",
         [](AIPEditor& editor) {
             editor.remove_section("scf");
             editor.upsert_section("opt", {});
         },
         "! hf\n\n>opt\nend\n"},
    });
}

TEST(SectionLines, TakeOneBlankLineAlong) {
    const std::string scf = ">scf\nend\n";
    expect_edited({
        {"the one before", "! hf\n\n" + scf + "\n>opt\nend\n", remove("scf"), "! hf\n\n>opt\nend\n"},
        {"the one before at the end", "! hf\n \n" + scf, remove("scf"), "! hf\n"},
        {"the one after at the top", scf + "\n! hf\n", remove("scf"), "! hf\n"},
        {"the one after below another line", "! hf\n" + scf + "\n>opt\nend\n", remove("scf"), "! hf\n>opt\nend\n"},
        {"not the one after below a remark", "! hf\n\n# a\n" + scf + "\n>opt\nend\n", remove("scf"),
         "! hf\n\n# a\n\n>opt\nend\n"},
        {"one of several", "! hf\n\n\n" + scf + "\n\n>opt\nend\n", remove("scf"), "! hf\n\n\n\n>opt\nend\n"},
        {"none where there is none", "! hf\n" + scf + ">opt\nend\n", remove("scf"), "! hf\n>opt\nend\n"},
        {"each its own", scf + "\n" + scf + "\n" + scf + "\n! hf\n", remove("scf"), "! hf\n"},
        {"each the one before it", "! hf\n\n" + scf + "\n" + scf + "\n>opt\nend\n", remove("scf"),
         "! hf\n\n>opt\nend\n"},
        {"without an end", "! hf\n\n>scf\n conv 1\n", remove("scf"), "! hf\n"},
        {"alone", scf, remove("scf"), ""},
    });
}

TEST(SectionLines, AreAddedBeforeTrailingNotes) {
    const std::string opt = ">opt\nend\n";
    expect_edited({
        {"of the last section", ">scf\nend\n\n# bye\nloose\n", upsert("opt", {}),
         ">scf\nend\n\n" + opt + "\n# bye\nloose\n"},
        {"right after it", ">scf\nend\n# bye\n", upsert("opt", {}), ">scf\nend\n\n" + opt + "\n# bye\n"},
        {"of the method line", "! hf\n# bye\n\n", upsert("opt", {}), "! hf\n\n" + opt + "\n# bye\n\n"},
        {"of the last directive", ">scf\nend\n% title x\n\n# bye\n", upsert("opt", {}),
         ">scf\nend\n% title x\n\n" + opt + "\n# bye\n"},
        {"two of them", "! hf\n\n# bye\n",
         [](AIPEditor& editor) {
             editor.upsert_section("opt", {});
             editor.upsert_section("notes", {});
         },
         "! hf\n\n" + opt + "\n>notes\nend\n\n# bye\n"},
        {"in the place of a removed one", "! hf\n\n>scf\nend\n\n# bye\n",
         [](AIPEditor& editor) {
             editor.remove_section("scf");
             editor.upsert_section("opt", {});
         },
         "! hf\n\n" + opt + "\n# bye\n"},
        {"after blank lines without notes", "! hf\n\n\n", upsert("opt", {}), "! hf\n\n\n" + opt},
        {"after the remarks of a section without an end", ">scf\n# a\n", upsert("opt", {}), ">scf\n# a\nend\n\n" + opt},
    });
}

TEST(SectionHeader, ChangesInTheWordsThatDiffer) {
    expect_edited({
        {"one argument", " >  SCF  a   b \nend\n", upsert("scf", {"a", "c"}), " >  SCF  a   c \nend\n"},
        {"one more", ">SCF  a\nend\n", upsert("scf", {"a", "b"}), ">SCF  a b\nend\n"},
        {"one less", ">SCF  a   b \nend\n", upsert("scf", {"a"}), ">SCF  a \nend\n"},
        {"first arguments", ">SCF\nend\n", upsert("scf", {"a"}), ">SCF a\nend\n"},
        {"none given: the old ones stay", ">SCF a\nend\n", upsert("scf", {}), ">SCF a\nend\n"},
        {"arguments of a geometry", ">XYZ  0 1\nO 0 0 0\nend\n", upsert("xyz", {"1", "2"}),
         ">XYZ  1 2\nO 0 0 0\nend\n"},
        {"charge", ">XYZ  0   1 x\nO 0 0 0\nend\n",
         [](AIPEditor& editor) { editor.upsert_section("xyz", {}).charge = -1; }, ">XYZ  -1   1 x\nO 0 0 0\nend\n"},
        {"charge beside a multiplicity with a sign", ">XYZ +0 +1 x\nend\n",
         [](AIPEditor& editor) { editor.upsert_section("xyz", {}).charge = -1; }, ">XYZ -1 +1 x\nend\n"},
        {"multiplicity beside a charge with a sign", ">XYZ +0 +1 x\nend\n",
         [](AIPEditor& editor) { editor.upsert_section("xyz", {}).multiplicity = 3; }, ">XYZ +0 3 x\nend\n"},
    });
}

TEST(SectionEnd, IsAddedWhereItIsMissed) {
    expect_edited({
        {"set to be there", ">scf\n conv 1\n",
         [](AIPEditor& editor) { editor.upsert_section("scf", {}).terminated = true; }, ">scf\n conv 1\nend\n"},
        {"set to be there, after a change", ">scf\n conv 1",
         [](AIPEditor& editor) {
             editor.set_section_entry("scf", "guess", "x");
             editor.upsert_section("scf", {}).terminated = true;
         },
         ">scf\n conv 1\n guess x\nend\n"},
        {"before a new section", ">scf\n conv 1\n", upsert("opt", {}), ">scf\n conv 1\nend\n\n>opt\nend\n"},
        {"not before a directive that stands further up", ">scf\n conv 1\n",
         [](AIPEditor& editor) { editor.set_directive("title", "x"); }, "% title x\n>scf\n conv 1\n"},
        {"not when a value changes", ">scf\n conv 1",
         [](AIPEditor& editor) { editor.set_section_entry("scf", "conv", "2"); }, ">scf\n conv 2"},
        {"not when an entry is added", ">scf\n conv 1\n",
         [](AIPEditor& editor) { editor.set_section_entry("scf", "guess", "x"); }, ">scf\n conv 1\n guess x\n"},
    });
}

TEST(SectionEnd, IsAddedToASectionThatWasNotRead) {
    const auto result = edited_in_place("! hf\n>frob\n x", upsert("scf", {}), false);
    EXPECT_EQ(result.text, "! hf\n>frob\n x\nend\n\n>scf\nend\n");
}

TEST(SectionLines, StandBeforeTheSectionThatFollowsInTheDocument) {
    const auto result = edited_in_place("! hf\n\n# why\n>scf\nend\n", [](AIPEditor& editor) {
        auto data = editor.data();
        data.sections.insert(data.sections.begin(), editor.make_section("opt", {}));
        editor.set_data(data);
    });
    EXPECT_EQ(result.text, "! hf\n\n>opt\nend\n\n# why\n>scf\nend\n");
    EXPECT_TRUE(result.problems.empty());
}

}  // namespace
}  // namespace velk::test
