// What follows from a finding is folded into it.
#include "diagnostics/fold_causes.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace velk::input::amesp {
namespace {

Diagnostic finding(std::string_view code, std::uint64_t offset) {
    Diagnostic diagnostic;
    diagnostic.code = code;
    diagnostic.message = std::string(code);
    diagnostic.range = TextRange{offset, 1, {1, offset + 1}, {1, offset + 2}};
    return diagnostic;
}

Detected detection(std::string_view code, std::uint64_t offset, std::vector<Extent> covers,
                   std::vector<std::string_view> explains = {}) {
    return {finding(code, offset), std::move(covers), std::move(explains)};
}

// "a(b c) d": a with the causes b and c, then d.
std::string folded(Detections detections, std::vector<Diagnostic> others) {
    std::string text;
    for (const Diagnostic& diagnostic : fold_causes(std::move(detections), std::move(others))) {
        text += (text.empty() ? "" : " ") + std::string(diagnostic.code);
        std::string causes;
        for (const Cause& cause : diagnostic.causes) {
            EXPECT_EQ(cause.message, cause.code);
            causes += (causes.empty() ? "" : " ") + std::string(cause.code);
        }
        text += causes.empty() ? "" : "(" + causes + ")";
    }
    return text;
}

TEST(FoldCauses, LeavesFindingsAsTheyAreWithoutDetections) {
    EXPECT_EQ(folded({}, {finding("b", 7), finding("a", 3)}), "b a");
}

TEST(FoldCauses, TakesWhatBeginsInAnExtent) {
    const std::vector<Diagnostic> others = {finding("before", 4), finding("first", 5), finding("last", 9),
                                            finding("after", 10)};
    EXPECT_EQ(folded({detection("d", 0, {{5, 5}})}, others), "d(first last) before after");
    EXPECT_EQ(folded({detection("d", 0, {{9, 2}, {4, 1}})}, others), "d(before last after) first");
    EXPECT_EQ(folded({detection("d", 0, {{5, 0}})}, others), "d before first last after");
}

TEST(FoldCauses, FoldsNoErrorIntoAWarning) {
    Detected warning = detection("w", 0, {{0, 9}}, {"x"});
    warning.diagnostic.severity = Severity::warning;
    Diagnostic covered = finding("c", 3);
    Diagnostic explained = finding("x", 20);
    EXPECT_EQ(folded({warning}, {covered, explained}), "w(c x)");
    covered.severity = Severity::error;
    explained.severity = Severity::error;
    EXPECT_EQ(folded({warning}, {covered, explained}), "w c x");
    EXPECT_EQ(folded({warning, detection("d", 30, {{0, 9}})}, {covered}), "w d c");
    warning.diagnostic.severity = Severity::error;
    EXPECT_EQ(folded({warning}, {covered, explained}), "w(c x)");
}

TEST(FoldCauses, TakesWhatTheDocumentLacksByItsCodeAlone) {
    Diagnostic missing = finding("x", 3);
    missing.subject.kind = "document";
    EXPECT_EQ(folded({detection("d", 20, {{0, 9}})}, {missing}), "d x");
    EXPECT_EQ(folded({detection("d", 20, {}, {"x"})}, {missing}), "d(x)");
}

TEST(FoldCauses, ListsCausesByPlace) {
    EXPECT_EQ(folded({detection("d", 0, {{0, 9}})}, {finding("y", 5), finding("x", 2), finding("z", 5)}), "d(x y z)");
}

TEST(FoldCauses, GivesTheFirstOfTwoDetectionsWhatBothCover) {
    EXPECT_EQ(folded({detection("d", 20, {{0, 9}}), detection("e", 30, {{0, 9}})}, {finding("x", 2)}), "d(x) e");
    EXPECT_EQ(folded({detection("d", 20, {{3, 2}}), detection("e", 30, {{0, 9}})},
                     {finding("x", 2), finding("y", 4), finding("z", 5)}),
              "d(y) e(x z)");
}

TEST(FoldCauses, FoldsALaterDetectionIntoAnEarlierOneWithAllThatFollowsFromIt) {
    EXPECT_EQ(folded({detection("d", 0, {{0, 5}}), detection("e", 4, {{4, 9}})}, {finding("x", 2), finding("y", 8)}),
              "d(x e y)");
    EXPECT_EQ(folded({detection("d", 4, {{4, 5}}), detection("e", 0, {{0, 9}})}, {finding("x", 2)}), "d e(x)");
    EXPECT_EQ(folded({detection("d", 0, {{0, 9}})}, {}), "d");
}

TEST(FoldCauses, TakesWhatADetectionExplainsWhereverItStands) {
    EXPECT_EQ(folded({detection("d", 5, {}, {"m", "n"}), detection("e", 6, {}, {"n", "o"})},
                     {finding("m", 90), finding("n", 1), finding("o", 2), finding("p", 3)}),
              "d(n m) e(o) p");
    EXPECT_EQ(folded({detection("d", 5, {}, {"m"}), detection("e", 0, {{80, 20}})}, {finding("m", 90)}), "d e(m)");
    EXPECT_EQ(folded({detection("d", 5, {}, {"e"}), detection("e", 0, {})}, {}), "d(e)");
    EXPECT_EQ(folded({detection("d", 5, {}), detection("e", 0, {}, {"d", "e"})}, {}), "d e");
}

}  // namespace
}  // namespace velk::input::amesp
