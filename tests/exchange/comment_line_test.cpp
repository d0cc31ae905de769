// What the comment line of XYZ text says of charge, multiplicity and columns.
#include <gtest/gtest.h>

#include "exchange/read.hpp"

namespace velk::input::amesp {
namespace {

using test::error_of;

XyzResult read(const std::string& comment) {
    return read_xyz("1\n" + comment + "\nHe 0 0 0\n");
}

struct Comment {
    const char* text;
    std::optional<std::int32_t> charge;
    std::optional<std::int32_t> multiplicity;
};

const Comment comments[] = {
    {"", {}, {}},
    {"water, optimised", {}, {}},
    {"charge=0 multiplicity=1", 0, 1},
    {"multiplicity=3 charge=-2", -2, 3},
    {"charge=+1 spin=2", 1, 2},
    {"CHARGE=1 Spin=2 E=-76.4", 1, 2},
    {"spin=2 multiplicity=2 charge=1 charge=1", 1, 2},
    {"charge = 1\tmultiplicity =2", 1, 2},
    {"charge= 1 multiplicity\t=\t2", 1, 2},
    {R"("charge"="1" "spin"=" 2 ")", 1, 2},
    {R"(title="say \"charge=5\" and spin=7" charge=0 spin=1)", 0, 1},
    {R"(title="" charge=0 spin=1)", 0, 1},
    {R"(path="C:\\" charge=0 spin=1)", 0, 1},
    {R"(title="charge=5 spin=7)", {}, {}},
    {R"(title="charge=5 spin=7\)", {}, {}},
    {R"(5" pipe, charge=0 spin=1)", 0, 1},
    {"=charge =charge = charge charge=0 spin=1", 0, 1},
    {"x=charge=5 charge=0 spin=1", 0, 1},
    {"total_charge=5 spinor=7", {}, {}},
    {"charge 5 multiplicity 7", {}, {}},
    {"charge", {}, {}},
    {R"(Lattice="9 0 0 0 9 0 0 0 9" Properties=species:S:1:pos:R:3 charge=0 spin=1 pbc="F F F")", 0, 1},
    {"properties=Species:S:1:Pos:R:3:forces:R:3 charge=0 spin=1", 0, 1},
    {R"(PROPERTIES="species:S:1:pos:R:3:Z:I:1")", {}, {}},
    {"Properties charge=0 spin=1", 0, 1},
};

TEST(CommentLine, GivesChargeAndMultiplicityTogether) {
    for (const Comment& comment : comments) {
        const XyzResult result = read(comment.text);
        ASSERT_TRUE(result.molecule) << comment.text << ": " << result.error->message;
        EXPECT_EQ(result.molecule->charge, comment.charge) << comment.text;
        EXPECT_EQ(result.molecule->multiplicity, comment.multiplicity) << comment.text;
        EXPECT_EQ(result.notes, std::vector<XyzMessage>()) << comment.text;
    }
}

TEST(CommentLine, GivesNeitherOfTheTwoWhereOneIsMissing) {
    constexpr auto no_multiplicity = "the comment line gives a charge, but no multiplicity: neither is taken from it";
    constexpr auto no_charge = "the comment line gives a multiplicity, but no charge: neither is taken from it";
    for (const auto& [text, note] :
         {std::pair{"charge=1", no_multiplicity}, {"spin=2", no_charge}, {"multiplicity=2 charge", no_charge}}) {
        const XyzResult result = read(text);
        ASSERT_TRUE(result.molecule) << text;
        EXPECT_EQ(result.molecule->charge, std::nullopt) << text;
        EXPECT_EQ(result.molecule->multiplicity, std::nullopt) << text;
        EXPECT_EQ(result.notes, (std::vector<XyzMessage>{{2, 1, note}})) << text;
    }
}

struct BadComment {
    const char* text;
    const char* error;
};

const BadComment bad_comments[] = {
    {"charge=x", "2:1: expected an integer after 'charge='"},
    {"charge=", "2:1: expected an integer after 'charge='"},
    {"charge=0 Spin=1.5", "2:10: expected an integer after 'Spin='"},
    {"  \"Multiplicity\"=\"one\"", "2:4: expected an integer after 'Multiplicity='"},
    {"charge=99999999999", "2:1: expected an integer after 'charge='"},
    {"charge=0, spin=1", "2:1: expected an integer after 'charge='"},
    {"charge=0 spin=2 multiplicity=1", "2:17: the multiplicity is given as 2 and as 1"},
    {"spin=1 charge=0 x charge=1", "2:19: the charge is given as 0 and as 1"},
    {"Properties=pos:R:3:species:S:1",
     "2:1: Properties begins with other columns than species:S:1:pos:R:3, which are those that are read"},
    {"x Properties=species:S:1:pos:R:30",
     "2:3: Properties begins with other columns than species:S:1:pos:R:3, which are those that are read"},
    {"Properties=species:S:1",
     "2:1: Properties begins with other columns than species:S:1:pos:R:3, which are those that are read"},
    {"Properties=",
     "2:1: Properties begins with other columns than species:S:1:pos:R:3, which are those that are read"},
};

TEST(CommentLine, SaysWhatIsWrongWithIt) {
    for (const BadComment& bad : bad_comments) {
        EXPECT_EQ(error_of("1\n" + std::string(bad.text) + "\nHe 0 0 0\n"), bad.error);
    }
}

}  // namespace
}  // namespace velk::input::amesp
