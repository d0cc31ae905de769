// Fixes made until none is left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "diagnostics/diagnosed.hpp"

namespace velk::input::amesp {
namespace {

using testing::IsEmpty;

TEST(FixAll, LeavesATextAsItIsThatNeedsNoFix) {
    const std::string text = "! hf\n>xyz 0 1\n He 0 0 0\nend\n";
    const FixResult result = fix_all(text, small_schema(), Applicability::likely);
    EXPECT_EQ(result.text, text);
    EXPECT_THAT(result.edits, IsEmpty());
    EXPECT_THAT(result.applied, IsEmpty());
    EXPECT_THAT(result.remaining.diagnostics, IsEmpty());
}

TEST(FixAll, MakesCertainFixesAloneUnlessToldOtherwise) {
    const std::string text = "! optt\n% maxcor 5\n>xyz 0 1\n He 0 0 0\n";
    const FixResult certain = fix_all(text, small_schema());
    EXPECT_EQ(certain.text, text + "end\n");
    EXPECT_EQ(certain.edits, (std::vector<TextEdit>{{text.size(), 0, "end\n"}}));
    ASSERT_EQ(certain.applied.size(), 1U);
    EXPECT_EQ(certain.applied[0].code, codes::inp::missing_end);
    EXPECT_EQ(certain.applied[0].message, "Section '>xyz' has no 'end'.");
    EXPECT_EQ(certain.applied[0].range->start, (Position{3, 1}));
    EXPECT_EQ(certain.applied[0].subject, (Subject{"section", "", "xyz"}));
    EXPECT_EQ(certain.remaining.diagnostics.size(), 2U);

    const FixResult likely = fix_all(text, small_schema(), Applicability::likely);
    EXPECT_EQ(likely.text, "! opt\n% maxcore 5\n>xyz 0 1\n He 0 0 0\nend\n");
    EXPECT_EQ(apply(text, likely.edits), likely.text);
    ASSERT_EQ(likely.applied.size(), 3U);
    for (const Diagnostic& applied : likely.applied) {
        EXPECT_EQ(applied.fixes.size(), 1U);
    }
    EXPECT_THAT(likely.remaining.diagnostics, IsEmpty());
}

TEST(FixAll, FixesWhatOnlyAFixBringsToLight) {
    const std::string text = "! hf\n>sfc\n maxcycc 5\n>xyz 0 1\n He 0 0 0\n";
    const FixResult result = fix_all(text, small_schema(), Applicability::likely);
    EXPECT_EQ(result.text, "! hf\n>scf\n maxcyc 5\nend\n>xyz 0 1\n He 0 0 0\nend\n");
    EXPECT_EQ(apply(text, result.edits), result.text);
    EXPECT_EQ(result.applied.size(), 4U);
}

TEST(FixAll, SaysNothingOfSectionsInSwallowedLinesButTheirPlace) {
    const FixResult result = fix_all("! hf\n>scf\n>xyz 0 1\n He 0 0 0\n", small_schema());
    EXPECT_EQ(result.text, "! hf\n>scf\nend\n>xyz 0 1\n He 0 0 0\nend\n");
    ASSERT_EQ(result.applied.size(), 2U);
    EXPECT_EQ(result.applied[0].subject, (Subject{"section", "", "scf"}));
    EXPECT_EQ(result.applied[1].range->start, (Position{3, 1}));
}

TEST(FixAll, TakesTheLimitForWhatRemains) {
    EXPECT_EQ(fix_all("! hf nothinglikeit neitherthis\n", small_schema(), Applicability::certain, {.limit_per_code = 1})
                  .remaining.omitted,
              1U);
}

TEST(FixAll, ItsEditsGiveItsTextAndASecondRunChangesNothing) {
    std::mt19937 random(5);
    const std::vector<std::string> pieces = {"% mem 5\n",
                                             "% maxcor 2\n",
                                             "! hf\n",
                                             "! otp",
                                             ">xyz 0 1\n",
                                             ">scf\n",
                                             ">sfc\n",
                                             "end\n",
                                             "\n",
                                             " # c\n",
                                             "# c\n",
                                             " conv 1\n",
                                             " maxcycc 1\n",
                                             "H 0 0 1\n",
                                             "odd\n",
                                             ">odd\n",
                                             "%odd\n",
                                             ">\n",
                                             "\r\n",
                                             "END",
                                             "edn\n",
                                             "end xyz\n",
                                             " end # c\n",
                                             ">end\n",
                                             ">zmat\n",
                                             ">scf conv 1 end\n",
                                             ">scf maxcyc 1\n",
                                             ">xyz 0,1\n",
                                             ">xyz\n",
                                             "0 1\n",
                                             "%maxcore=5\n",
                                             "% mem = 5 # c\n",
                                             " conv = 1;c\n"};
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (std::size_t n = random() % 14; n > 0; --n) {
            text += pieces[random() % pieces.size()];
        }
        for (const Applicability up_to : {Applicability::certain, Applicability::likely}) {
            const FixResult result = fix_all(text, small_schema(), up_to);
            ASSERT_EQ(apply(text, result.edits), result.text) << text;
            ASSERT_EQ(result.applied.empty(), result.text == text) << text;
            ASSERT_EQ(fix_all(result.text, small_schema(), up_to).text, result.text) << text;
        }
    }
}

}  // namespace
}  // namespace velk::input::amesp
