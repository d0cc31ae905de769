// The look-ups of a document.
#include <velk/input/amesp/document.hpp>

#include <gtest/gtest.h>

namespace velk::input::amesp {
namespace {

Section section(std::string name) {
    Section made;
    made.name = std::move(name);
    return made;
}

TEST(Document, FindsNothingWhenEmpty) {
    const AIPData data;
    EXPECT_EQ(data.find_directive("x"), nullptr);
    EXPECT_EQ(data.find_section("x"), nullptr);
    EXPECT_EQ(data.coordinate_section(), nullptr);
    EXPECT_EQ(Section().find_entry("x"), nullptr);
}

TEST(Document, FindsWholeNamesWhateverTheirCaseAndBlanks) {
    AIPData data;
    data.sections = {section("xyz"), section(" SCF ")};
    EXPECT_EQ(data.find_section("  XYZ "), &data.sections[0]);
    EXPECT_EQ(data.find_section("scf"), &data.sections[1]);
    EXPECT_EQ(data.find_section("xy"), nullptr);
    EXPECT_EQ(data.find_section("xyzz"), nullptr);
}

TEST(Document, FindsTheFirstOfSeveral) {
    AIPData data;
    data.sections = {section("a"), section("xyz"), section("XYZ")};
    data.directives = {{"m", "1", false, {}}, {"M", "2", false, {}}};
    data.sections[0].entries = {{"k", "1", false, "", {}}, {"K", "2", false, "", {}}};
    EXPECT_EQ(data.find_section("xyz"), &data.sections[1]);
    EXPECT_EQ(data.coordinate_section(), &data.sections[1]);
    EXPECT_EQ(data.find_directive("M"), &data.directives[0]);
    EXPECT_EQ(data.sections[0].find_entry("K"), &data.sections[0].entries[0]);
}

TEST(Document, MatchesBlankNamesWithBlankNamesOnly) {
    AIPData data;
    data.directives = {{"a", "", false, {}}, {" \t", "", false, {}}};
    EXPECT_EQ(data.find_directive(""), &data.directives[1]);
    EXPECT_EQ(data.find_directive("  "), &data.directives[1]);
    data.directives.pop_back();
    EXPECT_EQ(data.find_directive(""), nullptr);
}

TEST(Document, TakesWhicheverGeometryComesFirst) {
    AIPData data;
    data.sections = {section("scf"), section("zmat"), section("xyz")};
    EXPECT_EQ(data.coordinate_section(), &data.sections[1]);
    data.sections = {section("XYZ"), section("zmat")};
    EXPECT_EQ(data.coordinate_section(), &data.sections[0]);
    data.sections = {section("zmatrix"), section("xyz2")};
    EXPECT_EQ(data.coordinate_section(), nullptr);
}

TEST(Document, ComparesHighBytesUnchanged) {
    AIPData data;
    data.sections = {section("\xc4")};
    EXPECT_EQ(data.find_section("\xe4"), nullptr);
    EXPECT_EQ(data.find_section("\xc4"), &data.sections[0]);
}

TEST(Document, LetsTheFoundRecordBeChanged) {
    AIPData data;
    data.sections = {section("xyz")};
    data.find_section("xyz")->charge = 2;
    data.coordinate_section()->multiplicity = 3;
    data.sections[0].entries = {{"k", "", false, "", {}}};
    data.sections[0].find_entry("k")->value = "v";
    data.directives = {{"d", "", false, {}}};
    data.find_directive("d")->value = "w";
    EXPECT_EQ(data.sections[0].charge, 2);
    EXPECT_EQ(data.sections[0].multiplicity, 3);
    EXPECT_EQ(data.sections[0].entries[0].value, "v");
    EXPECT_EQ(data.directives[0].value, "w");
}

TEST(Records, HaveTheirStatedDefaults) {
    EXPECT_EQ(Section().parse_mode, SectionParseMode::raw);
    EXPECT_FALSE(Section().known);
    EXPECT_TRUE(Section().terminated);
    EXPECT_FALSE(ParseResult().ok);
    EXPECT_FALSE(Directive().location.has_value());
}

}  // namespace
}  // namespace velk::input::amesp
