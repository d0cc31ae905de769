// Names given twice.
#include <gtest/gtest.h>

#include "diagnostics/diagnosed.hpp"
#include "diagnostics/rendered.hpp"

namespace velk::input::amesp {
namespace {

const std::string geometry = ">xyz 0 1\n He 0 0 0\nend\n";

std::string found(const std::string& text) {
    return rendered(text, small_schema());
}

TEST(RepeatedNames, AreFoundInDirectives) {
    EXPECT_EQ(found("% mem 1\n%  MEM 2\n% mem 3\n! hf\n" + geometry),
              "warning repeated_name 2:4+3 'MEM' is given already.\n  related 1:3+3 the first one is here\n"
              "warning repeated_name 3:3+3 'mem' is given already.\n  related 1:3+3 the first one is here\n");
}

TEST(RepeatedNames, AreFoundInMethodLinesAlsoByAnotherName) {
    EXPECT_EQ(found("! b3lyp sto-3g  B3-LYP\n" + geometry),
              "warning repeated_name 1:17+6 'B3-LYP' is another name for 'b3lyp', which is given already.\n"
              "  related 1:3+5 the first one is here\n");
}

TEST(RepeatedNames, AreFoundInTheEntriesOfOneSection) {
    EXPECT_EQ(found("! hf\n" + geometry + ">scf\n maxcyc 1\n  maxiter = 1\nend\n>scf\n maxcyc 2\nend\n"),
              "warning repeated_name 7:3+7 'maxiter' is another name for 'maxcyc', which is given already.\n"
              "  related 6:2+6 the first one is here\n");
}

TEST(RepeatedNames, OfOneKindAreNoneOfAnother) {
    const SchemaSource schema = InputSchema::from_yaml(
        "directives: {hf: {}}\nmethod_tokens: {hf: {}}\n"
        "sections: {xyz: {parse_mode: xyz}, a: {parse_mode: key_value, entries: {hf: {}}}}");
    EXPECT_EQ(rendered("% hf 1\n! hf\n>a\n hf 1\nend\n" + geometry, schema), "");
}

TEST(RepeatedNames, ThatNobodyKnowsAreLeftToThoseWhoKnowThem) {
    EXPECT_EQ(found("% odd 1\n% odd 2\n! hf\n" + geometry),
              "warning unknown_directive 1:1+7 Unknown AMESP directive '% odd' was preserved.\n"
              "warning unknown_directive 2:1+7 Unknown AMESP directive '% odd' was preserved.\n");
}

}  // namespace
}  // namespace velk::input::amesp
