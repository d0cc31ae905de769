// The encodings of a YAML text, and where its characters come from.
#include "schema/yaml_source.hpp"

#include <gtest/gtest.h>

#include "schema/yaml_document.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;

struct SourceCase {
    std::string text;
    std::string utf8;
    std::vector<std::size_t> origins;  // of its bytes and its end
};

void expect_sources(const std::vector<SourceCase>& cases) {
    for (const SourceCase& c : cases) {
        const YamlSource source(c.text);
        EXPECT_EQ(source.utf8(), c.utf8) << testing::PrintToString(c.text);
        std::vector<std::size_t> origins;
        for (std::size_t position = 0; position <= source.utf8().size(); ++position) {
            origins.push_back(source.origin(position));
        }
        EXPECT_EQ(origins, c.origins) << testing::PrintToString(c.text);
    }
}

TEST(YamlSource, KnowsAnEncodingByItsByteOrderMark) {
    expect_sources({{"\xef\xbb\xbf", "", {3}},
                    {"\xef\xbb\xbf\0a"s, "\0a"s, {3, 4, 5}},
                    {"\xff\xfe", "", {2}},
                    {"\xff\xfe\x61\0\0\0"s, "a\0"s, {2, 4, 6}},
                    {"\xfe\xff\0a"s, "a", {2, 4}},
                    {"\xff\xfe\0\0a\0\0\0"s, "a", {4, 8}},
                    {"\0\0\xfe\xff\0\0\0a"s, "a", {4, 8}}});
}

TEST(YamlSource, KnowsAnEncodingByTheZeroBytesAroundItsFirstCharacter) {
    expect_sources({{"\0a\0b"s, "ab", {0, 2, 4}},
                    {"a\0b\0"s, "ab", {0, 2, 4}},
                    {"a\0"s, "a", {0, 2}},
                    {"a\0\0b"s, "a\xe6\x88\x80", {0, 2, 2, 2, 4}},
                    {"a\0\0\0"s, "a", {0, 4}},
                    {"\0\0\0a"s, "a", {0, 4}}});
}

TEST(YamlSource, TakesEverythingElseForUtf8) {
    for (const std::string& text : {""s,       "a"s,      "\0"s,     "\0\0"s,     "\0\0a"s,  "\0\0\xfe"s, "ab\0"s,
                                    "\0\xbb"s, "\0\xbf"s, "\0\xef"s, "\0\xfe"s,   "\0\xff"s, "\xbb\0"s,   "\xbf\0"s,
                                    "\xef\0"s, "\xfe\0"s, "\xff\0"s, "\xef\xbb"s, "\xff"s,   "\xc3\xa4"s}) {
        const YamlSource source(text);
        EXPECT_EQ(source.utf8(), text) << testing::PrintToString(text);
        EXPECT_EQ(source.origin(text.size()), text.size());
    }
}

TEST(YamlSource, WritesCharactersOfEveryLength) {
    expect_sources(
        {{"\xfe\xff\0\x7f\0\x80\x07\xff\x08\0\xff\xff"s,
          "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf",
          {2, 4, 4, 6, 6, 8, 8, 8, 10, 10, 10, 12}},
         {"\xfe\xff\xd8\x3d\xde\0\0a"s, "\xf0\x9f\x98\x80\x61", {2, 2, 2, 2, 6, 8}},
         {"\0\0\xfe\xff\0\x10\xff\xff\0\0\xff\xff"s, "\xf4\x8f\xbf\xbf\xef\xbf\xbf", {4, 4, 4, 4, 8, 8, 8, 12}}});
}

// A text that begins with "x", so that yaml-cpp reads it as one plain scalar.
TEST(YamlSource, ReadsBrokenTextAsYamlCppDoes) {
    const auto big = [](const std::string& units) { return "\xfe\xff\0x"s + units; };
    const std::string unknown = "\xef\xbf\xbd";
    const std::vector<SourceCase> cases = {
        {big("\xdc\0"s), "x" + unknown, {2, 4, 4, 4, 6}},
        {big("\xd8\0"s), "x" + unknown, {2, 4, 4, 4, 6}},
        {big("\xd8\0\0"s), "x" + unknown, {2, 4, 4, 4, 7}},
        {big("\xd8\0\0a\0b"s),
         "x" + unknown +
             "\xed\xa0\x80"
             "b",
         {2, 4, 4, 4, 4, 4, 4, 8, 10}},
        {big("\xdb\xff\xe0\0\0b"s),
         "x" + unknown +
             "\xed\xaf\xbf"
             "b",
         {2, 4, 4, 4, 4, 4, 4, 8, 10}},
        {big("\xd8\0\xdb\xff\xdf\xff"s), "x" + unknown + "\xf4\x8f\xbf\xbf", {2, 4, 4, 4, 4, 4, 4, 4, 10}},
        {big("\xdf\xff"s), "x" + unknown, {2, 4, 4, 4, 6}},
        {big("\0\x04\0a"s), "x" + unknown + "a", {2, 4, 4, 4, 6, 8}},
        {big("\0"s), "x", {2, 5}},
        {"\xff\xfe\0\0x\0\0\0\0\xd8\0\0\0\xdc\0\0y\0\0"s, "x\xed\xa0\x80\xed\xb0\x80", {4, 8, 8, 8, 12, 12, 12, 19}},
        {"\xff\xfe\0\0x\0\0\0\xff\xff\xff\xff"s, "x\xf7\xbf\xbf\xbf", {4, 8, 8, 8, 8, 12}}};
    expect_sources(cases);
    for (const SourceCase& c : cases) {
        EXPECT_EQ(read_yaml(c.text).root().scalar, c.utf8) << testing::PrintToString(c.text);
    }
}

}  // namespace
}  // namespace velk::input::amesp
