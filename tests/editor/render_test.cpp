// The text of a document, byte for byte, and its way to a file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <limits>
#include <velk/input/amesp/editor.hpp>

#include "support/locale_guard.hpp"
#include "support/parse.hpp"
#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

using test::parse;
using test::sample_schema;

std::string render(const AIPData& data, const InputSchema& schema = sample_schema()) {
    return AIPEditor(data, schema).render();
}

struct Case {
    const char* name;
    const char* text;
    const char* rendered;
};

const Case cases[] = {
    {"nothing", "", "\n"},
    {"everything", "# test\n%MAXIT  4\n!HF Ub3-lyp\n; late\n> Geometry 0 1\nO 0 0 .1\nend\nloose\n",
     "# test\n% maxcyc 4\n\n! hf ub3lyp\n\n>xyz 0 1\n  O 0.0000000000 0.0000000000 0.1000000000\nend\n\n; "
     "late\nloose\n"},
    {"directives without a method line", "% a\n% b 1\n>scf\nend", "% a\n% b 1\n\n>scf\nend\n"},
    {"method line first", "! hf\n", "! hf\n"},
    {"section first", ">scf\nend\n", "\n>scf\nend\n"},
    {"header comments stand close", "# a\n! hf", "# a\n! hf\n"},
    {"several method lines", "! hf\n! sto-3g", "! hf sto-3g\n"},
    {"header words of xyz", ">XYZ  0   1  extra\nend", "\n>xyz 0 1\nend\n"},
    {"signs of charge and multiplicity", ">xyz +2 +3\nend", "\n>xyz 2 3\nend\n"},
    {"xyz header without multiplicity", ">xyz  +0\nend", "\n>xyz +0\nend\n"},
    {"xyz header with a word", ">xyz 0 x y\nend", "\n>xyz 0 x y\nend\n"},
    {"other header words", ">scf  A   b\nend", "\n>scf A b\nend\n"},
    {"missing end", ">scf\nconv 1", "\n>scf\n  conv 1\nend\n"},
    {"entries", ">scf\n MaxIter = 5 \nnote\nstrange a = b\nend", "\n>scf\n  maxcyc 5\n  note\n  strange a b\nend\n"},
    {"raw lines after the records", ">scf\n# c\n\n \t\nconv 1\n= 5\nend",
     "\n>scf\n  conv 1\n  # c\n\n  \n  = 5\nend\n"},
    {"a raw section", ">notes\n  a=b  \nend", "\n>notes\n  a=b\nend\n"},
    {"an unknown section", ">odd  X\nline\nend", "\n>odd X\n  line\nend\n"},
    {"bad atoms keep their text", ">xyz 0 1\nH 0\nH 1 2 3\nend",
     "\n>xyz 0 1\n  H 1.0000000000 2.0000000000 3.0000000000\n  H 0\nend\n"},
    {"a long label", ">xyz 0 1\nH-of-the-seventeenth 1 -2 3e7\nend",
     "\n>xyz 0 1\n  H-of-the-seventeenth 1.0000000000 -2.0000000000 30000000.0000000000\nend\n"},
    {"coordinates of every size", ">xyz 0 1\nH 1e8 -2e20 3\nend",
     "\n>xyz 0 1\n  H 100000000.0000000000 -200000000000000000000.0000000000 3.0000000000\nend\n"},
    {"line ends", "# t\r\n! hf\r\n>notes\r\na\r\n\r\nend\r\n", "# t\n! hf\n\n>notes\n  a\n\nend\n"},
};

TEST(Render, GivesTheCanonicalText) {
    for (const Case& c : cases) {
        AIPData data = parse(c.text);
        if (std::string_view(c.name) == "entries") {
            data.sections[0].entries[2] = {"strange a", "b", false, "", {}};
        }
        EXPECT_EQ(render(data), c.rendered) << c.name;
    }
}

TEST(Render, OmitsValuesThatAreBlank) {
    AIPData data;
    data.directives = {{" MaxIt ", " \t", true, {}}, {"b", " v ", false, {}}};
    data.sections.resize(1);
    data.sections[0].name = "SCF";
    data.sections[0].parse_mode = SectionParseMode::key_value;
    data.sections[0].entries = {{"MaxIter", "  ", true, "raw", {}}, {"Odd", " 1 ", true, "", {}}};
    EXPECT_EQ(render(data), "% maxcyc\n% b v\n\n>scf\n  maxcyc\n  odd 1\nend\n");
}

TEST(Render, WritesATokensTextWhenItHasNoCanonicalForm) {
    AIPData data;
    data.method_tokens = {{"B3-LYP", "", "", false, {}}, {"x", "UHF", "", false, {}}};
    EXPECT_EQ(render(data), "! b3lyp uhf\n");
}

TEST(Render, FollowsTheParseModeStoredInTheSection) {
    Section section;
    section.name = "xyz";
    section.atoms = {{"H", 1, 2, 3, "", {}}};
    section.entries = {{"k", "v", false, "", {}}};
    AIPData data;
    for (const auto mode :
         {SectionParseMode::raw, SectionParseMode::key_value, SectionParseMode::cartesian_coordinates}) {
        section.parse_mode = mode;
        data.sections.push_back(section);
    }
    EXPECT_EQ(render(data),
              "\n>xyz\nend\n\n>xyz\n  k v\nend\n\n>xyz\n  H 1.0000000000 2.0000000000 3.0000000000\nend\n");
}

TEST(Render, WritesTheKeysOfAnUnknownSectionInNormalForm) {
    AIPData data;
    data.sections.resize(1);
    data.sections[0].name = "Odd";
    data.sections[0].parse_mode = SectionParseMode::key_value;
    data.sections[0].entries = {{" MaxIter ", "v", false, "", {}}};
    EXPECT_EQ(render(data), "\n>odd\n  maxiter v\nend\n");
}

TEST(Render, EndsInExactlyOneLineFeed) {
    AIPData data;
    data.preserved_lines = {"", "x", "", "\r", "\n"};
    EXPECT_EQ(render(data), "\n\nx\n");
    data.preserved_lines = {"", ""};
    EXPECT_EQ(render(data), "\n");
    data.preserved_lines.clear();
    data.header_comments = {"# a", ""};
    EXPECT_EQ(render(data), "# a\n");
}

struct CoordinateCase {
    double value;
    std::string text;
};

TEST(Render, WritesCoordinatesAsPrintfDoesInEveryLocale) {
    const double infinity = std::numeric_limits<double>::infinity();
    const CoordinateCase coordinates[] = {{0.0, "0.0000000000"},
                                          {-0.0, "-0.0000000000"},
                                          {-1.5, "-1.5000000000"},
                                          {1e-12, "0.0000000000"},
                                          {12345.678, "12345.6780000000"},
                                          {infinity, "inf"},
                                          {-infinity, "-inf"},
                                          {std::numeric_limits<double>::quiet_NaN(), "nan"},
                                          {0.5 / 10000000000.0, "0.0000000001"},
                                          {1e22, "10000000000000000000000.0000000000"}};
    for (const char* const name : {"C", "de_DE.UTF-8", "ar_EG.UTF-8"}) {
        const test::LocaleGuard locale(name);
        for (const CoordinateCase& c : coordinates) {
            AIPData data;
            data.sections.resize(1);
            data.sections[0].parse_mode = SectionParseMode::cartesian_coordinates;
            data.sections[0].charge = -2147483647 - 1;
            data.sections[0].multiplicity = 1000;
            data.sections[0].name = "xyz";
            data.sections[0].atoms = {{"H", c.value, 0, 1, "", {}}};
            EXPECT_EQ(render(data), "\n>xyz -2147483648 1000\n  H " + c.text + " 0.0000000000 1.0000000000\nend\n");
        }
    }
}

TEST(WriteFile, ReplacesTheFileByTheRenderedText) {
    const test::TempDir dir;
    test::write_file(dir / "f", "old");
    const AIPEditor editor(parse("! hf\n>notes\nx\nend"), sample_schema());
    editor.write_file(dir / "f");
    EXPECT_EQ(test::read_file(dir / "f"), editor.render());
    EXPECT_EQ(dir.entry_count(), 1U);
}

TEST(WriteFile, ThrowsAndLeavesTheTargetAloneWhenItCannotWrite) {
    const test::TempDir dir;
    std::filesystem::create_directory(dir / "directory");
    ASSERT_EQ(::mkfifo((dir / "pipe").c_str(), 0600), 0);
    const AIPEditor editor(AIPData(), sample_schema());
    for (const std::string& path : {dir / "missing/f", dir / "directory", dir / "pipe", std::string("/dev/full"),
                                    std::string("/dev/null"), std::string()}) {
        try {
            editor.write_file(path);
            ADD_FAILURE() << path;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), "failed to write AMESP input file '" + path + "'");
        }
    }
    EXPECT_EQ(dir.entry_count(), 2U);
    EXPECT_TRUE(std::filesystem::is_fifo(dir / "pipe"));
}

}  // namespace
}  // namespace velk::input::amesp
