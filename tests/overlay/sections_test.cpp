// Sections that come, go or change their header.
#include "overlay/laid_over.hpp"

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
    expect_laid_over({
        {"one", "# a\n\n>scf\n# b\n conv 1\nEnd\n# c\n", remove("scf"), "# a\n\n# c\n"},
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
    expect_laid_over({
        {"empty", "! hf\n", upsert("SCF", {}), "! hf\n\n>scf\nend\n"},
        {"full", "! hf\n", full, "! hf\n\n>opt a b\n  conv tight\n\n  # why\nend\n"},
        {"after a blank line", "! hf\n  \n", upsert("scf", {}), "! hf\n  \n>scf\nend\n"},
        {"after a comment", "! hf\n# bye\n", upsert("scf", {}), "! hf\n# bye\n\n>scf\nend\n"},
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

TEST(SectionHeader, ChangesInTheWordsThatDiffer) {
    expect_laid_over({
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
    expect_laid_over({
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
    const auto result = laid_over("! hf\n>frob\n x", upsert("scf", {}), false);
    EXPECT_EQ(result.text, "! hf\n>frob\n x\nend\n\n>scf\nend\n");
}

TEST(SectionLines, StandBeforeTheSectionThatFollowsInTheDocument) {
    const auto result = laid_over("! hf\n\n>scf\nend\n", [](AIPEditor& editor) {
        auto data = editor.data();
        data.sections.insert(data.sections.begin(), editor.make_section("opt", {}));
        editor.set_data(data);
    });
    EXPECT_EQ(result.text, "! hf\n\n>opt\nend\n\n>scf\nend\n");
    EXPECT_TRUE(result.problems.empty());
}

}  // namespace
}  // namespace velk::test
