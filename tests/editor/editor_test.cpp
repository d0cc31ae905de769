// The editor itself and the records it makes.
#include <velk/input/amesp/editor.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using test::parse;
using test::sample_schema;

TEST(Editor, TakesTheDocumentAsItIs) {
    AIPData data = parse("# c\n% odd 1\n! b3-LYP\nloose");
    data.sections.resize(1);
    data.sections[0].name = " XYZ ";
    data.directives[0].name = "MaxIt";
    AIPEditor editor(data, sample_schema());
    EXPECT_EQ(editor.data(), data);
    EXPECT_EQ(&editor.schema().tables(), &sample_schema().tables());
    editor.set_directive("odd", "2");
    EXPECT_EQ(editor.data().sections[0].name, " XYZ ");
    EXPECT_EQ(editor.data().directives[0].name, "MaxIt");
}

TEST(Editor, ReplacesTheWholeDocumentAndKeepsItsSchema) {
    AIPEditor editor(parse("# c\n% odd 1\n! hf\n>scf\nend\nloose"), sample_schema());
    editor.set_data({});
    EXPECT_EQ(editor.data(), AIPData());
    EXPECT_EQ(editor.render(), "\n");
    editor.add_method_token("B3-LYP");
    EXPECT_EQ(editor.data().method_tokens[0].canonical, "b3lyp");
}

TEST(Editor, MakesTokensAsTheSchemaSpellsThem) {
    const AIPEditor editor({}, sample_schema());
    EXPECT_EQ(editor.make_method_token("  Ub3-Lyp  "), (MethodToken{"Ub3-Lyp", "ub3lyp", "uks", true, {}}));
    EXPECT_EQ(editor.make_method_token("odd"), (MethodToken{"odd", "odd", "other", false, {}}));
    EXPECT_EQ(AIPEditor({}, InputSchema()).make_method_token("   "), (MethodToken{"", "", "other", false, {}}));
    EXPECT_EQ(editor.data(), AIPData());
}

TEST(Editor, MakesSectionsAsTheSchemaSpellsThem) {
    Section expected;
    expected.name = "geom";
    expected.arguments = {" 0 ", "1"};
    EXPECT_EQ(AIPEditor({}, InputSchema()).make_section("GEOM", {" 0 ", "1"}), expected);
    expected = {};
    expected.name = "xyz";
    expected.parse_mode = SectionParseMode::cartesian_coordinates;
    expected.known = true;
    EXPECT_EQ(AIPEditor({}, sample_schema()).make_section(" Geometry ", {}), expected);
}

TEST(Editor, ValidatesItsDocumentAgainstItsSchema) {
    const AIPData data = parse("% maxcyc 0\n>scf\nodd 1\n");
    EXPECT_EQ(AIPEditor(data, sample_schema()).validate(), sample_schema().validate(data));
    EXPECT_FALSE(AIPEditor(data, sample_schema()).validate().empty());
}

}  // namespace
}  // namespace velk::input::amesp
