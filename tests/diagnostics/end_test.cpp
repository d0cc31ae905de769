// Ends of sections that are missing or misspelt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diagnostics/diagnosed.hpp"
#include "diagnostics/rendered.hpp"

namespace velk::input::amesp {
namespace {

struct Case {
    const char* name;
    std::string text;
    std::string findings;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class Ends : public testing::TestWithParam<Case> {};

TEST_P(Ends, AreFoundWhereTheyAreMissingOrMisspelt) {
    EXPECT_EQ(rendered(GetParam().text, small_schema()), GetParam().findings);
}

std::string misspelt(const std::string& place, const std::string& word, const std::string& header,
                     const std::string& fixed) {
    return "error misspelt_end " + place + " '" + word +
           "' does not end section '>xyz': only 'end' alone on a line does.\n"
           "  related " +
           header + " the section begins here\n  certain write 'end'\n" + fixed + "\n";
}

// A geometry that a word in place of its end leaves open, with a section after it.
Case misspelt_word(const char* name, const std::string& line, const std::string& fixed_line) {
    const std::string head = "! hf\n>xyz 0 1\n He 0 0 0\n";
    const std::string tail = "\n>scf\n conv 1\nend\n";
    const std::string word = line.substr(line.find_first_not_of(' '));
    const std::string column = std::to_string(line.find_first_not_of(' ') + 1);
    return {name, head + line + tail,
            misspelt("4:" + column + "+" + std::to_string(word.size()), word, "2:1+8", head + fixed_line + tail) +
                "  cause invalid_xyz_record 4:1+0\n  cause invalid_xyz_record 5:1+0\n"
                "  cause invalid_xyz_record 6:1+0\n"};
}

INSTANTIATE_TEST_SUITE_P(
    Misspelt, Ends,
    testing::Values(misspelt_word("Transposed", "edn", "end"), misspelt_word("Indented", "  EDN", "  end"),
                    misspelt_word("WithItsSection", "end xyz", "end"),
                    misspelt_word("WithItsHeader", "End >XYZ", "end"),
                    misspelt_word("WithItsSectionAsARemark", "end  # xyz", "end"),
                    misspelt_word("WithARemark", " end // of the\tgeometry", " // of the\tgeometry\n end"),
                    misspelt_word("WithAnEmptyRemark", "end //", "end"), misspelt_word("WithAMark", "end#", "end"),
                    misspelt_word("WithASemicolon", "end;", "end"), misspelt_word("WithAFullStop", "end.", "end"),
                    misspelt_word("WithAComma", "end,", "end"), misspelt_word("Short", "en", "end"),
                    misspelt_word("Doubled", "endd", "end"), misspelt_word("WrongLetter", "emd", "end"),
                    misspelt_word("BothSlipAndRemark", "edn ; x", "; x\nend")),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    MisspeltElsewhere, Ends,
    testing::Values(
        Case{"AsAHeader", ">scf\n conv 1\n> end\n! hf\n>xyz 0 1\n He 0 0 0\nend\n",
             "error misspelt_end 3:1+5 '> end' does not end section '>scf': only 'end' alone on a line does.\n"
             "  related 1:1+4 the section begins here\n"
             "  certain write 'end'\n>scf\n conv 1\nend\n! hf\n>xyz 0 1\n He 0 0 0\nend\n\n"
             "  cause missing_method_line 1:1+4\n  cause unknown_entry 3:1+5\n  cause unknown_entry 4:1+4\n"
             "  cause unknown_entry 5:1+8\n  cause unknown_entry 6:2+8\n  cause missing_geometry 7:1+3\n"},
        Case{"AtTheEndOfTheText", "! hf\r\n>xyz 0 1\r\n He 0 0 0\r\nend # it",
             misspelt("4:1+8", "end # it", "2:1+8", "! hf\r\n>xyz 0 1\r\n He 0 0 0\r\n# it\r\nend") +
                 "  cause unterminated_section 2:1+8\n  cause invalid_xyz_record 4:1+0\n"},
        Case{"OfTwoSections", "! hf\n>xyz 0 1\n He 0 0 0\nedn\n>once\nedn\n",
             misspelt("4:1+3", "edn", "2:1+8", "! hf\n>xyz 0 1\n He 0 0 0\nend\n>once\nedn\n") +
                 "  cause unterminated_section 2:1+8\n  cause invalid_xyz_record 4:1+0\n"
                 "  cause invalid_xyz_record 5:1+0\n"
                 "error misspelt_end 6:1+3 'edn' does not end section '>once': only 'end' alone on a line does.\n"
                 "  related 5:1+5 the section begins here\n"
                 "  certain write 'end'\n! hf\n>xyz 0 1\n He 0 0 0\nedn\n>once\nend\n\n"
                 "  cause invalid_xyz_record 6:1+0\n"}),
    [](const auto& each) { return each.param.name; });

constexpr const char* geometry = "! hf\n>xyz 0 1\n He 0 0 0\nend\n";

Case right(const char* name, const std::string& text) {
    return {name, geometry + text, ""};
}

INSTANTIATE_TEST_SUITE_P(Right, Ends,
                         testing::Values(right("Raw", ">once\nNd\nend\n"), right("RawWithSlips", ">once\nedn\nend\n"),
                                         right("AtomsBelowASlip", ">once\nedn\n H\nend\n"),
                                         right("OtherWords", ">once\nend of file\nend\n"),
                                         right("MarkedLinesAmongOthers", ">once\n! a\n a\n% b\n b\nend\n")),
                         [](const auto& each) { return each.param.name; });

std::string lacks(const std::string& place, const std::string& header, const std::string& fixed) {
    return "error missing_end " + place +
           " Section '>scf' has no 'end' before this line, which is read as part of it.\n"
           "  related " +
           header + " the section begins here\n  certain add the missing 'end'\n" + fixed + "\n";
}

INSTANTIATE_TEST_SUITE_P(
    Missing, Ends,
    testing::Values(
        Case{"HiddenByALaterEnd", "! hf\n>zmat\n He\n\n>scf\n conv 1\nend\n",
             "error missing_end 5:1+4 Section '>zmat' has no 'end' before this line, which is read as part of it.\n"
             "  related 2:1+5 the section begins here\n"
             "  certain add the missing 'end'\n! hf\n>zmat\n He\nend\n\n>scf\n conv 1\nend\n\n"},
        Case{"BeforeTheGeometry", "! hf\n>scf\n conv 1\n>xyz 0 1\n He 0 0 0\nend\n",
             lacks("4:1+8", "2:1+4", "! hf\n>scf\n conv 1\nend\n>xyz 0 1\n He 0 0 0\nend\n") +
                 "  cause unknown_entry 4:1+8\n  cause unknown_entry 5:2+8\n  cause missing_geometry 6:1+3\n"},
        Case{"BeforeDirectiveAndMethodLine", ">xyz 0 1\n He 0 0 0\nend\n>scf\n conv 1\n%mem 5\n! hf\n! sto-3g\n",
             lacks("6:1+6", "4:1+4", ">xyz 0 1\n He 0 0 0\nend\n>scf\n conv 1\nend\n%mem 5\n! hf\n! sto-3g\n") +
                 "  cause missing_method_line 1:1+8\n  cause unterminated_section 4:1+4\n"
                 "  cause unknown_entry 6:1+6\n  cause unknown_entry 7:1+4\n  cause unknown_entry 8:1+8\n"},
        Case{"WhatIsMissingAllTheSame", "! hf\n>scf\n conv 1\n>scf\n conv 1\nend\n",
             lacks("4:1+4", "2:1+4", "! hf\n>scf\n conv 1\nend\n>scf\n conv 1\nend\n") +
                 "  cause unknown_entry 4:1+4\n  cause repeated_name 5:2+4\n"
                 "error missing_geometry 6:1+3 AMESP input requires one >xyz or >zmat coordinate section.\n"},
        Case{"EveryOne", "! hf\n>scf\n>scf\n>xyz 0 1\n He 0 0 0\n",
             lacks("3:1+4", "2:1+4", "! hf\n>scf\nend\n>scf\n>xyz 0 1\n He 0 0 0\n") +
                 "  cause unterminated_section 2:1+4\n  cause unknown_entry 3:1+4\n" +
                 lacks("4:1+8", "3:1+4", "! hf\n>scf\n>scf\nend\n>xyz 0 1\n He 0 0 0\n") +
                 "  cause unknown_entry 5:2+8\n  cause missing_geometry 5:2+8\n"
                 "error missing_end 4:1+8 Section '>xyz' has no 'end'.\n"
                 "  help add a line 'end' after the last line of the section\n"
                 "  certain add the missing 'end'\n! hf\n>scf\n>scf\n>xyz 0 1\n He 0 0 0\nend\n\n"
                 "  cause unknown_entry 4:1+8\n"},
        Case{"AtTheEndOfTheText", "! hf\r\n>xyz 0 0\r\n He 0 0 0",
             "error missing_end 2:1+8 Section '>xyz' has no 'end'.\n"
             "  help add a line 'end' after the last line of the section\n"
             "  certain add the missing 'end'\n! hf\r\n>xyz 0 0\r\n He 0 0 0\r\nend\r\n\n"
             "  cause unterminated_section 2:1+8\n"
             "error invalid_multiplicity 2:1+8 The >xyz spin multiplicity must be >= 1.\n"},
        Case{"OfAnUnknownSection", geometry + std::string(">odd\n"),
             "error missing_end 5:1+4 Section '>odd' has no 'end'.\n"
             "  help add a line 'end' after the last line of the section\n"
             "  certain add the missing 'end'\n" +
                 std::string(geometry) +
                 ">odd\nend\n\n"
                 "  cause unterminated_section 5:1+0\n"
                 "warning unknown_section 5:1+4 Unknown AMESP section '>odd' was preserved.\n"},
        Case{"PerhapsBeforeAnUnknownSection", geometry + std::string(">scf\n conv 1\n>odd\n conv x\nend\n"),
             "warning missing_end 7:1+4 Section '>scf' may lack an 'end' before this line, which is read as part of "
             "it.\n  related 5:1+4 the section begins here\n  likely add the missing 'end'\n" +
                 std::string(geometry) +
                 ">scf\n conv 1\nend\n>odd\n conv x\nend\n\n"
                 "  cause unknown_entry 7:1+4\n  cause repeated_name 8:2+4\n"
                 "error invalid_value 8:7+1 entry 'conv' in >scf expects real, got 'x'.\n"},
        Case{"SomewhereBeforeTheEndOfTheText", geometry + std::string(">scf\n conv 1\n%odd 1\n"),
             "error missing_end 7:1+6 Section '>scf' may lack an 'end' before this line, which is read as part of it.\n"
             "  related 5:1+4 the section begins here\n  likely add the missing 'end'\n" +
                 std::string(geometry) +
                 ">scf\n conv 1\nend\n%odd 1\n\n"
                 "  cause unterminated_section 5:1+4\n  cause unknown_entry 7:1+6\n"},
        Case{"NobodyKnowsWhere", geometry + std::string(">scf\n%mem 1\n! hf\n conv 1\n"),
             "error missing_end 5:1+4 Section '>scf' has no 'end'.\n"
             "  related 6:1+6 this line is read as part of the section\n"
             "  help add a line 'end' after the last line of the section\n"
             "  cause unterminated_section 5:1+4\n"
             "warning unknown_entry 6:1+6 Unknown entry '%mem' in >scf was preserved.\n"
             "warning unknown_entry 7:1+4 Unknown entry '!' in >scf was preserved.\n"}),
    [](const auto& each) { return each.param.name; });

TEST(EndOfASection, NamesItWholeUpTo80Characters) {
    const auto message = [](const std::string& name) {
        const Diagnosis diagnosis = diagnose(geometry + (">" + name) + "\n", small_schema());
        EXPECT_EQ(diagnosis.diagnostics.at(0).code, codes::inp::missing_end);
        return diagnosis.diagnostics.at(0).message;
    };
    EXPECT_EQ(message(std::string(79, 'y')), "Section '>" + std::string(79, 'y') + "' has no 'end'.");
    EXPECT_EQ(message(std::string(80, 'y')), "Section '>" + std::string(79, 'y') + "...' has no 'end'.");
    EXPECT_EQ(message(std::string(78, 'y') + "\u00e9\u00e9"),
              "Section '>" + std::string(78, 'y') + "\u00e9...' has no 'end'.");
}

TEST(EndOfAnUnknownSection, IsCertainlyMissingOnlyWhereNothingElseIsMeant) {
    const Diagnosis two = diagnose(geometry + std::string(">odd\n a\n>odder\n"), small_schema());
    std::vector<std::pair<Severity, Applicability>> found;
    for (const Diagnostic& each : two.diagnostics) {
        if (each.code == codes::inp::missing_end) {
            found.emplace_back(each.severity, each.fixes.at(0).applicability);
        }
    }
    EXPECT_THAT(found, testing::ElementsAre(std::pair(Severity::error, Applicability::likely),
                                            std::pair(Severity::warning, Applicability::likely)));
}

TEST(EndsOfSchemas, ThatKnowTheWordAreLeftAlone) {
    const SchemaSource odd = InputSchema::from_yaml(
        "method_tokens: {hf: {}}\nsections: {xyz: {parse_mode: xyz}, end: {},"
        " neb: {parse_mode: key_value, entries: {end: {}, edn: {}}}}\n");
    EXPECT_THAT(places_in(diagnose(geometry + std::string(">neb\n edn\n>neb\n end # x\n>end\n"), odd)),
                testing::ElementsAre("7:1+4 amesp-inp.missing_end", "9:1+4 amesp-inp.missing_end",
                                     "9:1+4 amesp-inp.missing_end"));
}

}  // namespace
}  // namespace velk::input::amesp
