// The look ahead at a section's body, and the room that it makes.
#include "parser/look_ahead.hpp"

#include <gtest/gtest.h>

#include <string>
#include <velk/input/amesp/parser.hpp>

#include "support/sample_schema.hpp"

namespace velk::input::amesp {
namespace {

struct Case {
    const char* text;
    std::size_t shortest;
    std::size_t count;
};

const Case cases[] = {
    {"", 1, 0},
    {"\n \t\n\r\n", 1, 0},
    {"a\nb 1\n  c = 2\r\nend\nd\n", 1, 3},
    {"a\n  END \nb\n", 1, 1},
    {"else\nending\nEnd", 1, 2},
    {"# a\n  ; b\na", 1, 1},
    {"H 0 0 0\n H 0 0\nHe 1 2 3", 7, 2},
};

TEST(RecordsAhead, CountsLinesThatMayBecomeRecords) {
    for (const Case& c : cases) {
        EXPECT_EQ(records_ahead(c.text, c.shortest), c.count) << c.text;
    }
}

std::string lines(std::size_t count, const std::string& line) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += line;
    }
    return text;
}

// Not copied: a copy has room of its own.
ParseResult parsed(const std::string& text) {
    return AIPParser::parse_string(text, test::sample_schema(), {});
}

TEST(Room, OfAListIsWhatItsRecordsNeed) {
    const ParseResult result =
        parsed(">xyz 0 1\n" + lines(1000, "H 0 0 0\n") + "end\n>scf\n" + lines(1000, "conv 1\n# note\n\n") +
               "end\n>xyz 0 1\n" + lines(9, "H 0 0 0\n") + "end\n>scf\n" + lines(1000, "x\n"));
    EXPECT_EQ(result.data.sections[0].atoms.capacity(), 1000U);
    EXPECT_EQ(result.data.sections[1].entries.capacity(), 1000U);
    EXPECT_EQ(result.data.sections[2].atoms.capacity(), 9U);
    EXPECT_EQ(result.data.sections[3].entries.capacity(), 1000U);
}

TEST(Room, IsNotTakenByLinesThatHoldNoRecord) {
    const ParseResult result =
        parsed(">xyz 0 1\n" + lines(100000, "\n") + lines(100000, "# a long comment\n") + "H 0 0 0\nend\n");
    EXPECT_EQ(result.data.sections[0].atoms.capacity(), 1U);
}

TEST(Room, IsNotTakenByLinesTooShortForAnAtom) {
    const ParseResult result = parsed(">xyz 0 1\n" + lines(1000, "H 0 0\n") + "H 0 0 0\nend\n");
    EXPECT_EQ(result.data.sections[0].atoms.capacity(), 1U);
}

TEST(Room, IsMadeForEntriesOnlyWhereAllOfThemAreKept) {
    const std::string body = lines(1000, "odd 1\n") + "end\n";
    EXPECT_EQ(parsed(">notes\n" + body).data.sections[0].entries.capacity(), 0U);
    EXPECT_EQ(parsed(">scf\n" + body).data.sections[0].entries.capacity(), 1000U);
    const ParseResult result = AIPParser::parse_string(">scf\n" + body, test::sample_schema(), {false, false});
    EXPECT_LT(result.data.sections[0].entries.capacity(), 10U);  // what is dropped is made first
}

}  // namespace
}  // namespace velk::input::amesp
