// Files, and the recognition of AMESP text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/parse.hpp"
#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

TEST(ParseFile, GivesWhatParsingItsTextGives) {
    const test::TempDir dir;
    const std::string text("! hf\r\n>xyz 0 1\nH 0 0 0\n\0\xff\nend", 29);
    test::write_file(dir / "f", text);
    for (const bool keep : {true, false}) {
        for (const bool validate : {true, false}) {
            EXPECT_EQ(AIPParser::parse_file(dir / "f", test::sample_schema(), {keep, validate}),
                      AIPParser::parse_string(text, test::sample_schema(), {keep, validate}));
        }
    }
}

TEST(ParseFile, FailsWithoutAnExceptionWhenTheFileCannotBeRead) {
    const test::TempDir dir;
    const std::string missing = dir / "missing";
    EXPECT_EQ(AIPParser::parse_file(missing, test::sample_schema(), {true, true}),
              (ParseResult{{}, false, "failed to read AMESP input '" + missing + "': No such file or directory"}));
    EXPECT_EQ(AIPParser::parse_file(dir.path(), test::sample_schema(), {true, true}).error,
              "failed to read AMESP input '" + dir.path() + "': Is a directory");
}

struct Case {
    const char* text;
    bool is_amesp;
};

TEST(LooksLikeAmespInput, NeedsAMethodLineAndAGeometryHeader) {
    const Case cases[] = {
        {"! hf sto-3g\n>xyz 0 1\n", true},
        {"! hf sto-3g\n>ZMatrix\n", true},
        {"! hf sto-3g\n> Coordinates\n", true},
        {">z-matrix\n!hf", true},
        {"!hf\n>ZMAT", true},
        {"!hf\n>Coord 0 1", true},
        {"! hf\r\n>xyz\r\n", true},
        {"! hf sto-3g\n>geom\n", false},
        {"! hf\n>xyzzy", false},
        {"! hf\n>xyz 0 1\n!\n", false},
        {"!\n>xyz\n! hf", true},
        {"# ! hf\n>xyz", false},
        {"// ! hf\n; ! hf\n>xyz", false},
        {"! hf\n#>xyz", false},
        {"", false},
        {"\n \n# a\n", false},
        {">xyz 0 1\n% a\nb", false},
        {"! hf\n>\n", false},
        {"! hf\n>\n>xyz", true},
        {"! hf\n>xyz\n>geom", true},
        {">scf\n! hf\n>xyz\nend", true},
        {"hf\nxyz", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(AIPParser::looks_like_amesp_input(c.text), c.is_amesp) << c.text;
    }
}

}  // namespace
}  // namespace velk::input::amesp
