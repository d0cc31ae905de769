// What canonical rendering moves, adds and rounds.
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>

#include "formatting/formatting_schema.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

struct Case {
    const char* name;
    std::string text;
    const char* expected;
};

void expect_changes(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const AIPEditor editor(AIPParser::parse_string(c.text, formatting_schema(), {true, false}).data,
                               formatting_schema());
        EXPECT_EQ(in_short(canonical_changes(editor, c.text, editor.render())), c.expected);
    }
}

TEST(CanonicalChanges, AreNoneInCanonicalText) {
    expect_changes({
        {"nothing", "", ""},
        {"everything", "# a\n% title x\n\n! hf\n\n>scf\n  conv 1\nend\n\n>xyz 0 1\n  H 0.5 0 0\nend\n", ""},
    });
}

TEST(CanonicalChanges, AreRecordsInAnotherOrder) {
    expect_changes({
        {"a directive below the method line", "! hf\n% title x\n", "2:1 moved_line"},
        {"a directive below a section", ">scf\nend\n% title x\n", "3:1 moved_line"},
        {"a directive above both", "% title x\n\n! hf\n\n>scf\nend\n", ""},
        {"the method line below a section", ">scf\nend\n! hf\n", "3:3 moved_line"},
    });
}

TEST(CanonicalChanges, AreCommentsThatComeAfterTheRecords) {
    expect_changes({
        {"in a section", "! hf\n\n>scf\n  # a\n  conv 1\n  # b\nend\n", "4:3 moved_line"},
        {"among atoms", ">xyz 0 1\n  # a\n  H 0 0 0\nend\n", "2:3 moved_line"},
        {"below the records of a section", ">scf\n  conv 1\n  # b\nend\n", ""},
        {"in a kept section", ">notes\n# a\nend\n", ""},
        {"between records of a file", "% title x\n# a\n! hf\n", "2:1 moved_line"},
        {"at the head", "# a\n% title x\n", ""},
        {"at the end", "! hf\n\n# a\n", ""},
    });
}

TEST(CanonicalChanges, AreBlankLinesThatAreLaidOutAnew) {
    expect_changes({
        {"too many", "! hf\n\n\n>scf\nend\n", "2:1 moved_blank_lines"},
        {"none", "! hf\n>scf\nend\n", ""},
    });
}

TEST(CanonicalChanges, AreCoordinatesThatAreRounded) {
    const std::string xyz = ">xyz 0 1\n  H ";
    expect_changes({
        {"x", xyz + "0.12345678904 0 0\nend\n", "2:3 rounded"},
        {"y", xyz + "0 0.12345678904 0\nend\n", "2:3 rounded"},
        {"z", xyz + "0 0 0.12345678904\nend\n", "2:3 rounded"},
        {"none", xyz + "0.1234567890 0 0\nend\n", ""},
    });
}

TEST(CanonicalChanges, ComeByPlaceAndThoseWithoutOneFirst) {
    AIPData data = AIPParser::parse_string("! hf\n% title x\n", formatting_schema(), {true, false}).data;
    const AIPEditor editor(std::move(data), formatting_schema());
    EXPECT_EQ(in_short(canonical_changes(editor, "! hf\n% title x\n", "% title y\n! hf\n# b\n")),
              "- reads_differently, 2:1 reads_differently, 2:1 moved_line");
}

}  // namespace
}  // namespace velk::test
