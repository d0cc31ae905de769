// A YAML text as nodes: their kinds, their values, their places.
#include "schema/yaml_document.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

std::string described(const YamlPlace& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column) + "@" + std::to_string(place.offset);
}

// Kind, value and places of a node, such as "scalar a 1:1@0".
std::string described(const YamlNode& node) {
    static constexpr const char* kinds[] = {"null", "scalar", "sequence", "mapping", "alias"};
    std::string text = kinds[static_cast<std::size_t>(node.kind)];
    text += node.scalar.empty() ? " " : " " + node.scalar + " ";
    text += node.begin == node.place ? "" : described(node.begin) + " ";
    text += node.anchor ? "& " + described(*node.anchor) + " " : "";
    return text + described(node.place);
}

std::vector<std::string> described(const std::string& text) {
    std::vector<std::string> nodes;
    for (const YamlNode& node : read_yaml(text).nodes) {
        nodes.push_back(described(node));
    }
    return nodes;
}

std::string failure(const std::string& text) {
    try {
        read_yaml(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "read";
}

struct NodesCase {
    std::string text;
    std::vector<std::string> nodes;
};

void expect_nodes(const std::vector<NodesCase>& cases) {
    for (const NodesCase& c : cases) {
        EXPECT_EQ(described(c.text), c.nodes) << c.text;
    }
}

TEST(YamlDocument, HasKeysAndValuesWhereTheyStand) {
    expect_nodes({
        {"word", {"scalar word 1:1@0"}},
        {"\n  # a comment\n  a b", {"scalar a b 3:3@17"}},
        {"a: 1\nbc:\n  d: \"e\\n\"\n",
         {"mapping 1:1@0", "scalar a 1:1@0", "scalar 1 1:4@3", "scalar bc 2:1@5", "mapping 3:3@11", "scalar d 3:3@11",
          "scalar e\n 3:6@14"}},
        {"{a: [x, 'y'], ? [k] : ~}",
         {"mapping 1:1@0", "scalar a 1:2@1", "sequence 1:5@4", "scalar x 1:6@5", "scalar y 1:9@8", "sequence 1:17@16",
          "scalar k 1:18@17", "null 1:23@22"}},
        {"- a\n-  - b\n   - c: d\n",
         {"sequence 1:1@0", "scalar a 1:3@2", "sequence 2:4@7", "scalar b 2:6@9", "mapping 3:6@16", "scalar c 3:6@16",
          "scalar d 3:9@19"}},
        {"[a: b, : c]",
         {"sequence 1:1@0", "mapping 1:2@1", "scalar a 1:2@1", "scalar b 1:5@4", "mapping 1:8@7", "null 1:8@7",
          "scalar c 1:10@9"}},
        {"a: |\n  text\n  more\n", {"mapping 1:1@0", "scalar a 1:1@0", "scalar text\nmore\n 1:4@3"}},
    });
}

TEST(YamlDocument, CountsColumnsInBytes) {
    expect_nodes({{"\xc3\xa4: b", {"mapping 1:1@0", "scalar \xc3\xa4 1:1@0", "scalar b 1:5@4"}},
                  {"a: b\r\nc: d",  // a carriage return is the last byte of its line
                   {"mapping 1:1@0", "scalar a 1:1@0", "scalar b 1:4@3", "scalar c 2:1@6", "scalar d 2:4@9"}}});
}

TEST(YamlDocument, PutsAnAbsentValueWhereSomethingIsWrittenNext) {
    expect_nodes({{"a:\nb: ~\n", {"mapping 1:1@0", "scalar a 1:1@0", "null 2:1@3", "scalar b 2:1@3", "null 2:4@6"}},
                  {"a: 1\nbc:", {"mapping 1:1@0", "scalar a 1:1@0", "scalar 1 1:4@3", "scalar bc 2:1@5", "null 2:4@8"}},
                  {"a:", {"mapping 1:1@0", "scalar a 1:1@0", "null 1:3@2"}},
                  {"a:\n", {"mapping 1:1@0", "scalar a 1:1@0", "null 2:1@3"}}});
}

TEST(YamlDocument, IsANullForATextWithoutADocument) {
    expect_nodes({{"", {"null 1:1@0"}}, {"# none", {"null 1:1@0"}}, {"\xef\xbb\xbf# none", {"null 1:1@3"}}});
    EXPECT_EQ(described("---\n...\n"), std::vector<std::string>{"null 2:1@4"});
}

TEST(YamlDocument, IsTheFirstOfManyDocuments) {
    EXPECT_EQ(described("%YAML 1.2\n--- a\n---\n[unread"), std::vector<std::string>{"scalar a 2:5@14"});
}

TEST(YamlDocument, HasPlacesOfValuesAfterAnchorsAndTags) {
    expect_nodes({
        {"&a x", {"scalar x 1:1@0 & 1:1@0 1:4@3"}},
        {"!!str &long x", {"scalar x 1:1@0 & 1:7@6 1:13@12"}},
        {"&a  !!str  x", {"scalar x 1:1@0 & 1:1@0 1:12@11"}},
        {"!<tag:x> 'x'", {"scalar x 1:1@0 1:10@9"}},
        {"! x", {"scalar x 1:1@0 1:3@2"}},
        {"!a%41/(b)\t\"x\"", {"scalar x 1:1@0 1:11@10"}},
        {"!!str\"x\"", {"scalar x 1:1@0 1:6@5"}},
        {"!!set{a}", {"mapping 1:1@0 1:6@5", "scalar a 1:7@6", "null 1:8@7"}},
        {"k: &a # a: comment\n\n  !t\r\n  x", {"mapping 1:1@0", "scalar k 1:1@0", "scalar x 1:4@3 & 1:4@3 4:3@28"}},
        {"&a\rb x", {"scalar x 1:1@0 & 1:1@0 1:6@5"}},
        {"!a \rx", {"scalar \rx 1:1@0 1:4@3"}},
        {"&m\nk: v", {"mapping 1:1@0 & 1:1@0 2:1@3", "scalar k 2:1@3", "scalar v 2:4@6"}},
        {"!!seq\n- v", {"sequence 1:1@0 2:1@6", "scalar v 2:3@8"}},
    });
}

TEST(YamlDocument, LeavesTheAnchorOfAKeyToTheKey) {
    expect_nodes({{"&k k: v", {"mapping 1:1@0", "scalar k 1:1@0 & 1:1@0 1:4@3", "scalar v 1:7@6"}},
                  {"!m\n!s k: v", {"mapping 1:1@0 2:1@3", "scalar k 2:1@3 2:4@6", "scalar v 2:7@9"}},
                  {"&m\n&k k: v", {"mapping 1:1@0 & 1:1@0 2:1@3", "scalar k 2:1@3 & 2:1@3 2:4@6", "scalar v 2:7@9"}}});
}

TEST(YamlDocument, PutsTheAbsentValueOfAnAnchorOrTagAfterIt) {
    expect_nodes({{"[&a , b]", {"sequence 1:1@0", "null 1:2@1 & 1:2@1 1:5@4", "scalar b 1:7@6"}},
                  {"&a", {"null 1:1@0 & 1:1@0 1:3@2"}},
                  {"&a # end", {"null 1:1@0 & 1:1@0 1:9@8"}},
                  {"[!!str ]", {"sequence 1:1@0", "scalar 1:2@1 1:8@7"}}});
}

TEST(YamlDocument, RefersFromAnAliasToTheNodeOfItsAnchor) {
    const YamlDocument document = read_yaml("a: &x {b: 1}\nc: *x\nd: &x 2\ne: *x\n*x : f\n");
    EXPECT_EQ(document.nodes.size(), 13U);
    const auto expect_alias = [&](std::size_t alias, const char* place, std::size_t target) {
        EXPECT_EQ(described(document.nodes[alias]), std::string("alias ") + place);
        EXPECT_EQ(&yaml_value(document.nodes[alias]), &document.nodes[target]);
        EXPECT_EQ(document.nodes[alias].size, 1U);
    };
    expect_alias(6, "2:4@16", 2);
    expect_alias(10, "4:4@30", 8);
    expect_alias(11, "5:1@33", 8);
    EXPECT_EQ(&yaml_value(document.root()), &document.root());
}

TEST(YamlDocument, EndsWhereAnAliasStandsForWhatHoldsIt) {
    const YamlDocument document = read_yaml("&a [*a, {b: *a}]");
    ASSERT_EQ(document.nodes.size(), 5U);
    EXPECT_EQ(&yaml_value(document.nodes[1]), &document.root());
    EXPECT_EQ(&yaml_value(document.nodes[4]), &document.root());
}

TEST(YamlDocument, IsNoLargerThanItsTextHoweverOftenAliasesAreUsed) {
    std::string text = "- &a0 x\n";
    for (int level = 1; level < 100; ++level) {
        const std::string alias = "*a" + std::to_string(level - 1);
        text += "- &a" + std::to_string(level) + " [" + alias + ", " + alias + ", " + alias + "]\n";
    }
    EXPECT_EQ(read_yaml(text).nodes.size(), 2U + 99 * 4);
}

TEST(YamlDocument, WalksItemsAndPairs) {
    const YamlDocument document = read_yaml("{a: [b, [c], d], [e]: {f: g}, h: }");
    std::vector<std::string> found;
    for_each_yaml_pair(document.root(), [&](const YamlNode& key, const YamlNode& value) {
        found.push_back(described(key.place) + " " + described(value.place));
        for_each_yaml_item(value, [&](const YamlNode& item) { found.push_back(item.scalar); });
    });
    EXPECT_EQ(found,
              (std::vector<std::string>{"1:2@1 1:5@4", "b", "", "d", "1:18@17 1:23@22", "f", "g", "1:31@30 1:34@33"}));
}

TEST(YamlDocument, CountsOffsetsInBytesOfTheTextInItsEncoding) {
    expect_nodes(
        {{"\xef\xbb\xbf"s + "a: b", {"mapping 1:1@3", "scalar a 1:1@3", "scalar b 1:4@6"}},
         {"\xff\xfe"s + "a\0:\0 \0&\0x\0 \0b\0"s, {"mapping 1:1@2", "scalar a 1:1@2", "scalar b 1:4@8 & 1:4@8 1:7@14"}},
         {"\xfe\xff\x20\xac\0:\0 \0b"s,  // three bytes of UTF-8
          {"mapping 1:1@2", "scalar \xe2\x82\xac 1:1@2", "scalar b 1:6@8"}},
         {"a\0\0\0:\0\0\0\n\0\0\0"s, {"mapping 1:1@0", "scalar a 1:1@0", "null 2:1@12"}}});
}

TEST(YamlDocument, FailsAsDeepNestingAndBrokenTextDo) {
    EXPECT_EQ(failure("a: [b"), "yaml-cpp: error at line 1, column 1: end of sequence flow not found");
    EXPECT_EQ(failure("*x"), "yaml-cpp: error at line 1, column 1: the referenced anchor is not defined");
    EXPECT_EQ(failure(std::string(499, '[') + std::string(499, ']')), "read");
    EXPECT_THAT(failure(std::string(100000, '[')), HasSubstr("bad file"));
}

TEST(YamlDocument, ReadsFilesAndNamesOneThatItCannotRead) {
    const test::TempDir dir;
    test::write_file(dir / "x.yaml", "a: b");
    EXPECT_EQ(read_yaml_file(dir / "x.yaml").nodes.size(), 3U);
    for (const std::string& path : {dir / "missing", dir.path()}) {
        try {
            read_yaml_file(path);
            ADD_FAILURE() << path;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), "bad file: " + path);
        }
    }
}

TEST(YamlDocument, ReadsScalarsAsBooleans) {
    for (const char* const word : {"y", "Y", "yes", "Yes", "YES", "true", "True", "TRUE", "on", "On", "ON", "'on'"}) {
        EXPECT_TRUE(yaml_boolean(read_yaml(word).root())) << word;
    }
    for (const char* const word : {"n", "N", "no", "No", "NO", "false", "False", "FALSE", "off", "Off", "OFF"}) {
        EXPECT_FALSE(yaml_boolean(read_yaml(word).root())) << word;
    }
    for (const char* const word : {"yEs", "1", "t", "\n &a\n  'true '", "!!str"}) {
        EXPECT_THROW(yaml_boolean(read_yaml(word).root()), std::runtime_error) << word;
    }
    try {
        yaml_boolean(read_yaml("\n  &a maybe").root());
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "yaml-cpp: error at line 2, column 3: bad conversion");
    }
}

TEST(YamlDocument, KnowsTheWordsForInfinitiesAndNaN) {
    for (const char* const word : {".inf", ".Inf", ".INF", "+.inf", "+.Inf", "+.INF"}) {
        EXPECT_EQ(yaml_special_number(word), HUGE_VAL) << word;
    }
    for (const char* const word : {"-.inf", "-.Inf", "-.INF"}) {
        EXPECT_EQ(yaml_special_number(word), -HUGE_VAL) << word;
    }
    for (const char* const word : {".nan", ".NaN", ".NAN"}) {
        EXPECT_TRUE(std::isnan(yaml_special_number(word).value_or(0))) << word;
    }
    for (const char* const word : {"", "inf", "nan", ".iNF", "1"}) {
        EXPECT_EQ(yaml_special_number(word), std::nullopt) << word;
    }
}

}  // namespace
}  // namespace velk::input::amesp
