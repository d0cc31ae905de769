// Findings as JSON.
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <velk/input/amesp/report.hpp>

namespace velk::test {
namespace {

using namespace input::amesp;

constexpr auto place = R"({"start":{"line":2,"column":3},"end":{"line":2,"column":5}})";

Diagnostic finding() {
    Diagnostic diagnostic;
    diagnostic.severity = Severity::error;
    diagnostic.code = "a.code";
    diagnostic.message = "\"what\"";
    diagnostic.range = TextRange{7, 2, {2, 3}, {2, 5}};
    return diagnostic;
}

std::string report(const Diagnostic& diagnostic) {
    const std::vector<Diagnostic> findings = {diagnostic};
    return json_report({"f.inp", "", findings});
}

std::string with(const std::string& severity, const std::string& range, const std::string& rest) {
    return R"({"file":"f.inp","error":null,"findings":[{"severity":")" + severity +
           R"(","code":"a.code","message":"\"what\"","range":)" + range + "," + rest + "}]}";
}

const std::string nothing = R"("notes":[],"help":[],"fixes":[],"causes":[])";

TEST(JsonReport, OfAFileNamesItAndWhyItCouldNotBeRead) {
    EXPECT_EQ(json_report({"f\n.inp", "", {}}), R"({"file":"f\n.inp","error":null,"findings":[]})");
    EXPECT_EQ(json_report({"f", "", {}, "no"}), R"({"file":"f","error":"no","findings":[]})");
    EXPECT_EQ(json_report_head("s.yaml"), R"({"format":"amesp-inp findings","version":2,"schema":"s.yaml","files":[)");
}

TEST(JsonReport, GivesTheSeverityByName) {
    Diagnostic diagnostic = finding();
    EXPECT_EQ(report(diagnostic), with("error", place, nothing));
    diagnostic.severity = Severity::warning;
    EXPECT_EQ(report(diagnostic), with("warning", place, nothing));
    diagnostic.severity = Severity::note;
    EXPECT_EQ(report(diagnostic), with("note", place, nothing));
}

TEST(JsonReport, HasNoRangeWhereThereIsNoText) {
    Diagnostic diagnostic = finding();
    diagnostic.range.reset();
    EXPECT_EQ(report(diagnostic), with("error", "null", nothing));
}

TEST(JsonReport, ListsNotesHelpFixesAndCauses) {
    Diagnostic diagnostic = finding();
    diagnostic.related = {{"here", diagnostic.range, {}}, {"there", std::nullopt, {}}};
    diagnostic.help = {"a", "b"};
    diagnostic.fixes = {{"do", Applicability::certain, {{1, 2, "x\n"}, {5, 0, ""}}}, {"or", Applicability::likely, {}}};
    diagnostic.causes = {{"b.code", Severity::warning, "so", std::nullopt}};
    EXPECT_EQ(report(diagnostic),
              with("error", place,
                   R"("notes":[{"message":"here","range":)" + std::string(place) +
                       R"(},{"message":"there","range":null}],"help":["a","b"],"fixes":[)"
                       R"({"title":"do","applicability":"certain","edits":[{"offset":1,"length":2,"text":"x\n"},)"
                       R"({"offset":5,"length":0,"text":""}]},{"title":"or","applicability":"likely","edits":[]}],)"
                       R"("causes":[{"severity":"warning","code":"b.code","message":"so","range":null}])"));
}

}  // namespace
}  // namespace velk::test
