// Every edit operation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using test::parse;
using test::sample_schema;
using testing::ElementsAre;
using testing::IsEmpty;

AIPEditor edit(const std::string& text) {
    return AIPEditor(parse(text), sample_schema());
}

AIPData with_directives(std::vector<Directive> directives) {
    AIPData data;
    data.directives = std::move(directives);
    return data;
}

Section named(std::string name) {
    Section section;
    section.name = std::move(name);
    return section;
}

std::vector<std::string> section_names(const AIPEditor& editor) {
    std::vector<std::string> names;
    for (const Section& section : editor.data().sections) {
        names.push_back(section.name);
    }
    return names;
}

TEST(SetDirective, AppendsANormalisedDirectiveWithoutAPlace) {
    AIPEditor editor({}, InputSchema());
    editor.set_directive(" MaxCyc ", " 200 ");
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"maxcyc", "200", false, {}}));
    AIPEditor known = edit("% a");
    known.set_directive("MAXIT", "");
    EXPECT_EQ(known.data().directives.at(1), (Directive{"maxcyc", "", true, {}}));
}

TEST(SetDirective, UpdatesTheFirstOfThatNameInItsPlace) {
    AIPEditor editor = edit("% a 1\n% maxcyc 1\n% maxcyc 2\n");
    editor.set_directive("maxit", " 9 ");
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"a", "1", false, SourceLocation{1, 1, 5}},
                                                      Directive{"maxcyc", "9", true, SourceLocation{2, 1, 10}},
                                                      Directive{"maxcyc", "2", true, SourceLocation{3, 1, 10}}));
}

TEST(SetDirective, FindsWhatEarlierEditsLeft) {
    AIPEditor editor = edit("% a 1\n% b 1\n");
    editor.set_directive("c", "1");
    editor.set_directive("C", "2");
    editor.set_directive("b", "2");
    editor.remove_directive("a");
    editor.set_directive("b", "3");
    editor.set_directive("a", "3");
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"b", "3", false, SourceLocation{2, 1, 5}},
                                                      Directive{"c", "2", false, {}}, Directive{"a", "3", false, {}}));
    editor.set_data(with_directives({{"x", "1", false, {}}, {"a", "1", false, {}}}));
    editor.set_directive("a", "4");
    editor.set_directive("b", "4");
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"x", "1", false, {}}, Directive{"a", "4", false, {}},
                                                      Directive{"b", "4", false, {}}));
}

TEST(SetDirective, OfACopiedOrMovedEditorChangesItsOwnDocument) {
    AIPEditor editor = edit("% a 1\n");
    editor.set_directive("b", "1");
    AIPEditor copy = editor;
    copy.set_directive("b", "2");
    AIPEditor moved = std::move(editor);
    moved.set_directive("a", "3");
    moved.set_directive("b", "3");
    EXPECT_THAT(copy.data().directives,
                ElementsAre(Directive{"a", "1", false, SourceLocation{1, 1, 5}}, Directive{"b", "2", false, {}}));
    EXPECT_THAT(moved.data().directives,
                ElementsAre(Directive{"a", "3", false, SourceLocation{1, 1, 5}}, Directive{"b", "3", false, {}}));
}

TEST(SetDirective, MakesAStoredNameCanonical) {
    AIPEditor editor(with_directives({{" MAXCYC ", "1", false, {}}}), sample_schema());
    editor.set_directive("maxcyc", "2");
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"maxcyc", "2", true, {}}));
}

TEST(Directives, StoredUnderAnAliasAreMissedByTheSetterAndCaughtByTheRemover) {
    AIPEditor editor(with_directives({{"maxit", "1", true, {}}, {"b", "", false, {}}}), sample_schema());
    editor.set_directive("maxit", "50");
    EXPECT_EQ(editor.data().directives.size(), 3U);
    EXPECT_EQ(editor.data().directives[2], (Directive{"maxcyc", "50", true, {}}));
    EXPECT_TRUE(editor.remove_directive("maxit"));
    EXPECT_THAT(editor.data().directives, ElementsAre(Directive{"b", "", false, {}}));
}

TEST(RemoveDirective, RemovesAllOfThatNameAndKeepsTheOthersInOrder) {
    AIPEditor editor = edit("% a\n% x 1\n% b\n% X 2\n% x 3\n% c");
    const AIPData before = editor.data();
    EXPECT_FALSE(editor.remove_directive("y"));
    EXPECT_EQ(editor.data(), before);
    EXPECT_TRUE(editor.remove_directive(" X "));
    EXPECT_THAT(editor.data().directives,
                ElementsAre(before.directives[0], before.directives[2], before.directives[5]));
}

TEST(MethodTokens, AreAppendedAlsoWhenPresent) {
    AIPEditor editor = edit("! hf");
    editor.add_method_token("   ");
    EXPECT_EQ(editor.data().method_tokens.size(), 1U);
    editor.add_method_token(" hf ");
    editor.add_method_token("Odd");
    EXPECT_EQ(editor.data().method_tokens[1], (MethodToken{"hf", "hf", "method", true, {}}));
    EXPECT_EQ(editor.data().method_tokens[2], (MethodToken{"Odd", "odd", "other", false, {}}));
}

TEST(MethodTokens, AreRemovedByCanonicalFormOrElseByText) {
    AIPEditor editor = edit("! B3-LYP x b3lyp Ub3lyp");
    EXPECT_TRUE(editor.remove_method_token(" b3lyp"));
    EXPECT_EQ(editor.render(), "! x ub3lyp\n");
    EXPECT_FALSE(editor.remove_method_token("b3lyp"));
    AIPData data;
    data.method_tokens = {
        {"B3-LYP", "", "", false, {}}, {"other", "B3-lyp", "", false, {}}, {"b3lyp", "hf", "", false, {}}};
    editor.set_data(data);
    EXPECT_TRUE(editor.remove_method_token("b3-lyp"));
    EXPECT_THAT(editor.data().method_tokens, ElementsAre(data.method_tokens[2]));
}

TEST(MethodTokens, AreReplacedAsAWholeWithoutBlankOnes) {
    AIPEditor editor = edit("! b3lyp sto-3g");
    editor.set_method_tokens({"", "hf", "  ", "hf"});
    EXPECT_THAT(editor.data().method_tokens,
                ElementsAre(MethodToken{"hf", "hf", "method", true, {}}, MethodToken{"hf", "hf", "method", true, {}}));
    editor.set_method_tokens({});
    EXPECT_THAT(editor.data().method_tokens, IsEmpty());
}

TEST(UpsertSection, AppendsAnEmptySection) {
    AIPEditor editor({}, InputSchema());
    Section& section = editor.upsert_section("SCF", {});
    EXPECT_EQ(section, named("scf"));
    EXPECT_EQ(&section, &editor.data().sections[0]);
}

TEST(UpsertSection, RefreshesTheFirstOfThatNameAndKeepsTheRest) {
    AIPData data = parse(">scf a b\nconv 1\n# c\n");
    data.sections.push_back(data.sections[0]);
    data.sections[0].name = "SCF ";
    data.sections[0].known = false;
    data.sections[0].parse_mode = SectionParseMode::raw;
    data.sections[0].charge = 4;
    data.sections[0].atoms = {{"H", 0, 0, 0, "", {}}};
    AIPEditor editor(data, sample_schema());
    Section expected = data.sections[0];
    expected.name = "scf";
    expected.known = true;
    expected.parse_mode = SectionParseMode::key_value;
    EXPECT_EQ(editor.upsert_section(" scfControl", {}), expected);
    expected.arguments = {"0", "1"};
    EXPECT_EQ(editor.upsert_section("scf", {"0", "1"}), expected);
    EXPECT_THAT(editor.data().sections, ElementsAre(expected, data.sections[1]));
}

TEST(UpsertSection, LooksForWhatAnAliasStandsForAndMakesASectionFromThatName) {
    const auto schema = InputSchema::from_yaml("sections: {b: {aliases: [a]}, c: {aliases: [b]}}");  // a -> b -> c
    AIPEditor editor({}, schema);
    EXPECT_EQ(editor.upsert_section("a", {}).name, "c");
    AIPData data;
    data.sections = {named("b")};
    editor.set_data(data);
    EXPECT_EQ(editor.upsert_section("a", {}).name, "b");
    EXPECT_THAT(section_names(editor), ElementsAre("b"));
}

TEST(RemoveSection, RemovesAllOfThatName) {
    AIPData data;
    data.sections = {named("a"), named("SCF"), named("b"), named("scfcontrol"), named("scf")};
    AIPEditor editor(data, sample_schema());
    EXPECT_FALSE(editor.remove_section("sc"));
    EXPECT_TRUE(editor.remove_section("ScfControl"));
    EXPECT_THAT(section_names(editor), ElementsAre("a", "b"));
    EXPECT_FALSE(editor.remove_section("scf"));
}

TEST(SetSectionEntry, MakesSectionAndEntry) {
    AIPEditor editor({}, InputSchema());
    editor.set_section_entry("newsec", "Key", " v ");
    Section expected = named("newsec");
    expected.entries = {{"key", "v", false, "", {}}};
    EXPECT_THAT(editor.data().sections, ElementsAre(expected));
}

TEST(SetSectionEntry, UpdatesTheFirstOfThatNameInItsPlace) {
    AIPEditor editor = edit(">scf x\n  MaxIter = 1\nconv 1\nmaxcyc 3\nend\n>scf\nend");
    editor.set_section_entry("SCFControl", "maxiter", " 7 ");
    const Section& section = editor.data().sections[0];
    EXPECT_THAT(section.arguments, ElementsAre("x"));
    EXPECT_EQ(section.entries.size(), 3U);
    EXPECT_EQ(section.entries[0], (SectionEntry{"maxcyc", "7", true, "  MaxIter = 1", SourceLocation{2, 3, 11}}));
    EXPECT_EQ(section.entries[2].value, "3");
    EXPECT_THAT(editor.data().sections[1].entries, IsEmpty());
    editor.set_section_entry("scf", "Odd", "");
    EXPECT_EQ(editor.data().sections[0].entries[3], (SectionEntry{"odd", "", false, "", {}}));
}

TEST(SetSectionEntry, AsksTheSchemaAgainWhetherItKnowsTheEntry) {
    AIPEditor editor(parse(">scf\nconv 1\nodd 2\nend"), InputSchema());
    ASSERT_TRUE(editor.data().sections[0].entries[0].known);
    editor.set_section_entry("scf", "conv", "3");
    EXPECT_FALSE(editor.data().sections[0].entries[0].known);

    AIPData data = editor.data();
    AIPEditor with_schema(std::move(data), sample_schema());
    with_schema.set_section_entry("scf", "conv", "4");
    with_schema.set_section_entry("scf", "odd", "5");
    EXPECT_TRUE(with_schema.data().sections[0].entries[0].known);
    EXPECT_FALSE(with_schema.data().sections[0].entries[1].known);
}

TEST(SetSectionEntry, SpellsTheKeyOfTheEntryThatItFindsAsTheSchemaDoes) {
    AIPData data = parse(">scf\nconv 1\nend");
    data.sections[0].entries[0].key = "  CONV ";
    AIPEditor editor(data, sample_schema());
    editor.set_section_entry("scf", "Conv", "2");
    ASSERT_EQ(editor.data().sections[0].entries.size(), 1U);
    EXPECT_EQ(editor.data().sections[0].entries[0].key, "conv");
    EXPECT_EQ(editor.data().sections[0].entries[0].value, "2");
}

TEST(SetSectionEntry, StoresInARawSectionWhatIsNotRendered) {
    AIPEditor editor = edit(">notes\nx\nend");
    const std::string before = editor.render();
    editor.set_section_entry("notes", "key", "v");
    EXPECT_EQ(editor.data().sections[0].entries.size(), 1U);
    EXPECT_EQ(editor.render(), before);
}

TEST(RemoveSectionEntry, RemovesAllOfThatNameFromTheFirstSection) {
    AIPEditor editor = edit(">scf\nmaxiter 1\nconv 1\nMAXCYC 2\nend\n>scf\nmaxcyc 3\nend");
    EXPECT_FALSE(editor.remove_section_entry("absent", "maxcyc"));
    EXPECT_FALSE(editor.remove_section_entry("scf", "diis"));
    EXPECT_TRUE(editor.remove_section_entry("SCFcontrol", "MaxIter"));
    EXPECT_EQ(editor.data().sections[0].entries.size(), 1U);
    EXPECT_EQ(editor.data().sections[1].entries.size(), 1U);
    EXPECT_TRUE(editor.remove_section_entry("scf", "conv"));
    EXPECT_EQ(editor.data().sections.size(), 2U);
}

TEST(RemoveSectionEntry, CatchesEntriesStoredUnderAnAlias) {
    AIPData data;
    data.sections = {named("scf")};
    data.sections[0].entries = {{"maxiter", "1", true, "", {}}};
    AIPEditor editor(data, sample_schema());
    editor.set_section_entry("scf", "maxiter", "2");
    EXPECT_EQ(editor.data().sections[0].entries.size(), 2U);
    EXPECT_TRUE(editor.remove_section_entry("scf", "maxiter"));
    EXPECT_THAT(editor.data().sections[0].entries, IsEmpty());
}

TEST(SetXyzGeometry, ReplacesEveryGeometryByOneAtTheEnd) {
    const std::vector<AtomRecord> atoms = {{"H", 1, 2, 3, "raw", SourceLocation{9, 9, 9}}, {"", 0, 0, 0, "", {}}};
    AIPData data;
    data.sections = {named("zmat"), named("scf"), named("XYZ"), named("geometry"), named("b"), named("xyz ")};
    AIPEditor editor(data, sample_schema());
    editor.set_xyz_geometry(-1, 2, atoms);
    EXPECT_THAT(section_names(editor), ElementsAre("scf", "b", "xyz"));
    Section expected = named("xyz");
    expected.arguments = {"-1", "2"};
    expected.parse_mode = SectionParseMode::cartesian_coordinates;
    expected.known = true;
    expected.charge = -1;
    expected.multiplicity = 2;
    expected.atoms = atoms;
    EXPECT_EQ(editor.data().sections.back(), expected);
    editor.set_xyz_geometry(std::numeric_limits<std::int32_t>::min(), 0, {});
    EXPECT_EQ(editor.data().sections.size(), 3U);
    EXPECT_THAT(editor.data().sections.back().arguments, ElementsAre("-2147483648", "0"));
    EXPECT_THAT(editor.data().sections.back().atoms, IsEmpty());
}

TEST(SetXyzGeometry, ComparesCanonicalNamesWithTheLiteralOnes) {
    InputSchema::Impl tables;
    tables.section_aliases["xyz"] = "geo";
    AIPEditor editor({}, InputSchema(std::make_shared<const InputSchema::Impl>(tables)));
    editor.set_xyz_geometry(0, 1, {});
    editor.set_xyz_geometry(0, 1, {});
    EXPECT_THAT(section_names(editor), ElementsAre("geo", "geo"));
}

TEST(Edits, TakeArgumentsThatReferToTheirOwnDocument) {
    AIPEditor editor = edit(
        "% a-rather-long-directive-name 1\n% b 2\n! a-rather-long-token-name hf\n"
        ">scf\na-rather-long-entry-name 1\nconv 1\nend\n>another-rather-long-section\nend\n");
    editor.set_section_entry(editor.data().sections[0].name, editor.data().sections[0].entries[0].key,
                             editor.data().directives[1].value);
    EXPECT_EQ(editor.data().sections[0].entries[0].value, "2");
    EXPECT_TRUE(editor.remove_section_entry(editor.data().sections[0].name, editor.data().sections[0].entries[0].key));
    EXPECT_TRUE(editor.remove_section(editor.data().sections[1].name));
    EXPECT_TRUE(editor.remove_directive(editor.data().directives[0].name));
    EXPECT_TRUE(editor.remove_method_token(editor.data().method_tokens[0].text));
    EXPECT_EQ(editor.render(), "% b 2\n\n! hf\n\n>scf\n  conv 1\nend\n");
    editor.upsert_section("scf", {"hf", "odd"});
    editor.set_method_tokens(editor.data().sections[0].arguments);
    editor.upsert_section(editor.data().sections[0].name, editor.data().sections[0].arguments);
    editor.set_xyz_geometry(0, 1, {{"H", 0, 0, 0, "", {}}});
    editor.set_xyz_geometry(0, 1, editor.data().sections.back().atoms);
    EXPECT_EQ(editor.data().sections.back().atoms.size(), 1U);
    EXPECT_EQ(editor.data().method_tokens.size(), 2U);
}

}  // namespace
}  // namespace velk::input::amesp
