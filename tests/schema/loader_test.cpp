// The schema's YAML format: what is read, what is skipped, what fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <velk/input/amesp/schema_tables.hpp>

#include "support/locale_guard.hpp"
#include "support/temp_dir.hpp"

namespace velk::input::amesp {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* complete = R"(
directives:
  maxcyc: {value_type: integer, min: 1, aliases: [max_cycles]}
  scf:    {value_type: enum, allowed: [diis, ediis], required: false}
method_tokens:
  b3lyp: {category: method, aliases: b3-lyp}
  def2-svp: {category: basis}
method_prefixes:
  u: {category: method, applies_to_category: method}
sections:
  xyz:  {parse_mode: cartesian_coordinates, required: true, allow_multiple: false}
  scf:
    parse_mode: key_value
    entries:
      maxcyc: {value_type: integer, min: 1}
      conv:   {value_type: real, min: 0, max: 1}
    aliases: [scfcontrol]
)";

std::string failure(const std::string& yaml) {
    try {
        InputSchema::from_yaml(yaml);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "loaded";
}

template <class Value>
std::vector<std::string> keys(const StringMap<Value>& map) {
    std::vector<std::string> result;
    for (const auto& [key, value] : map) {
        result.push_back(key);
    }
    return result;
}

TEST(Loader, ReadsEveryKey) {
    const InputSchema schema = InputSchema::from_yaml(complete);
    InputSchema::Impl expected;
    expected.directives["maxcyc"] = {"maxcyc", "integer", {}, 1.0, {}, false};
    expected.directives["scf"] = {"scf", "enum", {"diis", "ediis"}, {}, {}, false};
    expected.directive_aliases = {{"maxcyc", "maxcyc"}, {"max_cycles", "maxcyc"}, {"scf", "scf"}};
    expected.method_tokens = {{"b3lyp", {"b3lyp", "method"}}, {"def2-svp", {"def2-svp", "basis"}}};
    expected.method_token_aliases = {{"b3lyp", "b3lyp"}, {"b3-lyp", "b3lyp"}, {"def2-svp", "def2-svp"}};
    expected.method_prefixes = {{"u", "method", "method"}};
    expected.sections["xyz"] = {"xyz", SectionParseMode::cartesian_coordinates, true, false, {}, {}};
    SectionSpec& scf = expected.sections["scf"];
    scf.name = "scf";
    scf.parse_mode = SectionParseMode::key_value;
    scf.entries["maxcyc"] = {"maxcyc", "integer", {}, 1.0, {}, false};
    scf.entries["conv"] = {"conv", "real", {}, 0.0, 1.0, false};
    scf.entry_aliases = {{"maxcyc", "maxcyc"}, {"conv", "conv"}};
    expected.section_aliases = {{"xyz", "xyz"}, {"scf", "scf"}, {"scfcontrol", "scf"}};
    EXPECT_EQ(schema.tables(), expected);
}

TEST(Loader, KeepsTheOrderOfDeclaration) {
    const InputSchema schema =
        InputSchema::from_yaml("directives: {z: , a: , m: }\nsections: {y: {entries: {q: , b: , c: }}, b: , x: }\n");
    EXPECT_THAT(keys(schema.tables().directives), ElementsAre("z", "a", "m"));
    EXPECT_THAT(keys(schema.tables().sections), ElementsAre("y", "b", "x"));
    EXPECT_THAT(keys(schema.tables().sections.at("y").entries), ElementsAre("q", "b", "c"));
}

TEST(Loader, GivesAnEmptySchemaForTextWithoutAnyOfTheFourKeys) {
    for (const char* const text :
         {"", "  \n\t ", "---\n", "# only a comment\n", "null", "~", "other: 1", "[a, b]", "directives: 5",
          "directives: [a]\nsections: x\nmethod_tokens:\nmethod_prefixes: 1", "\v\f"}) {
        EXPECT_TRUE(InputSchema::from_yaml(text).empty()) << text;
    }
}

struct ModeCase {
    const char* text;
    SectionParseMode mode;
};

TEST(Loader, MapsParseModes) {
    for (const ModeCase& c : {ModeCase{"key_value", SectionParseMode::key_value},
                              {"'Key-Value '", SectionParseMode::key_value},
                              {"cartesian_coordinates", SectionParseMode::cartesian_coordinates},
                              {"COORDINATES", SectionParseMode::cartesian_coordinates},
                              {"xyz", SectionParseMode::cartesian_coordinates},
                              {"raw", SectionParseMode::raw},
                              {"lines", SectionParseMode::raw},
                              {"''", SectionParseMode::raw},
                              {"[key_value]", SectionParseMode::raw},
                              {"{a: b}", SectionParseMode::raw}}) {
        const InputSchema schema = InputSchema::from_yaml(std::string("sections: {s: {parse_mode: ") + c.text + "}}");
        EXPECT_EQ(schema.section_parse_mode("s"), c.mode) << c.text;
    }
}

TEST(Loader, GivesDefaultsToWhatIsAbsent) {
    const InputSchema schema = InputSchema::from_yaml(
        "directives: {a: , b: [x], c: {}}\nmethod_tokens: {t: , u: [], v: {category: [x]}}\n"
        "method_prefixes: {p: , q: word, r: {category: }}\nsections: {s: , t: [x], u: {}}\n");
    const InputSchema::Impl& tables = schema.tables();
    for (const char* const name : {"a", "b", "c"}) {
        EXPECT_EQ(tables.directives.at(name), (ValueSpec{name, "string", {}, {}, {}, false}));
    }
    for (const char* const name : {"t", "u", "v"}) {
        EXPECT_EQ(tables.method_tokens.at(name), (MethodSpec{name, "other"}));
    }
    for (const MethodPrefixSpec& prefix : tables.method_prefixes) {
        EXPECT_EQ(prefix, (MethodPrefixSpec{prefix.prefix, "method", "method"}));
    }
    EXPECT_EQ(tables.method_prefixes.size(), 3U);
    for (const char* const name : {"s", "t", "u"}) {
        EXPECT_EQ(tables.sections.at(name), (SectionSpec{name, SectionParseMode::raw, false, true, {}, {}}));
    }
}

TEST(Loader, NormalisesEveryNameAndWord) {
    const InputSchema schema = InputSchema::from_yaml(
        "directives: {' MaxCyc ': {value_type: ' INTEGER', allowed: [' A ', B], aliases: [' MAX ']}}\n"
        "method_tokens: {B3LYP: {category: ' Method '}}\n"
        "method_prefixes: {U: {category: UKS, applies_to_category: METHOD}}\n"
        "sections: {SCF: {parse_mode: key_value, entries: {Conv: {aliases: ' TOL '}}, aliases: [' C ']}}\n");
    EXPECT_EQ(schema.canonical_directive("max"), "maxcyc");
    EXPECT_EQ(schema.tables().directives.at("maxcyc").value_type, "integer");
    EXPECT_THAT(schema.tables().directives.at("maxcyc").allowed, ElementsAre("a", "b"));
    EXPECT_EQ(schema.method_token_category("ub3lyp"), "uks");
    EXPECT_EQ(schema.canonical_entry("c", "tol"), "conv");
}

TEST(Loader, ReadsAllowedAndAliasesFromOneScalarOrASequenceOfScalars) {
    const auto allowed = [](const std::string& value) {
        return InputSchema::from_yaml("directives: {d: {allowed: " + value + "}}").tables().directives.at("d").allowed;
    };
    EXPECT_THAT(allowed("DIIS"), ElementsAre("diis"));
    EXPECT_THAT(allowed("[b, a, [x], {y: z}, , 3]"), ElementsAre("b", "a", "3"));
    EXPECT_THAT(allowed("{a: b}"), IsEmpty());
    EXPECT_THAT(allowed(""), IsEmpty());
}

struct BoundCase {
    const char* text;
    std::optional<double> value;
};

TEST(Loader, ReadsBoundsThatAreNumbersAndSkipsOthersInEveryLocale) {
    const double infinity = std::numeric_limits<double>::infinity();
    const BoundCase cases[] = {
        {"1", 1.0},           {"-3", -3.0}, {"0.5", 0.5},  {"1e20", 1e20},  {"'2.5'", 2.5}, {".inf", infinity},
        {"-.inf", -infinity}, {"word", {}}, {"'1,5'", {}}, {"''", {}},      {"[1]", {}},    {"1.2.3", {}},
        {"1-2", {}},          {"-", {}},    {"1.5x", {}},  {"1 2", {}},     {"", {}},       {"{a: 1}", {}},
        {"inf", {}},          {"-inf", {}}, {"nan", {}},   {"infinity", {}}};
    const auto check = [&] {
        for (const BoundCase& c : cases) {
            const std::string yaml = std::string("directives: {d: {min: ") + c.text + ", max: " + c.text + "}}";
            const InputSchema schema = InputSchema::from_yaml(yaml);
            EXPECT_EQ(schema.tables().directives.at("d").min, c.value) << c.text;
            EXPECT_EQ(schema.tables().directives.at("d").max, c.value) << c.text;
        }
    };
    check();
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        check();
    }
    const auto nan = InputSchema::from_yaml("directives: {d: {min: .nan}}").tables().directives.at("d").min;
    EXPECT_TRUE(nan && std::isnan(*nan));
}

TEST(Loader, LetsTheLaterOfTwoKeysThatNormaliseAlikeWin) {
    const InputSchema schema = InputSchema::from_yaml(
        "sections:\n  scf: {parse_mode: key_value, required: true, aliases: [one]}\n  other:\n"
        "  SCF: {parse_mode: xyz, aliases: [two]}\n"
        "directives: {a: {value_type: int}, A: }\nmethod_tokens: {t: {category: x}, T: {category: y}}\n"
        "method_prefixes: {u: {category: x}, U: {category: y}}\n");
    EXPECT_EQ(schema.section_parse_mode("scf"), SectionParseMode::cartesian_coordinates);
    EXPECT_FALSE(schema.tables().sections.at("scf").required);
    EXPECT_EQ(schema.canonical_section("one"), "scf");
    EXPECT_EQ(schema.canonical_section("two"), "scf");
    EXPECT_THAT(keys(schema.tables().sections), ElementsAre("scf", "other"));
    EXPECT_EQ(schema.tables().directives.at("a").value_type, "string");
    EXPECT_EQ(schema.method_token_category("t"), "y");
    EXPECT_EQ(schema.tables().method_prefixes.size(), 2U);
}

TEST(Loader, LetsALaterAliasOverwriteAnEarlierOne) {
    const InputSchema schema = InputSchema::from_yaml("directives: {a: {aliases: [x, b]}, b: , c: {aliases: x}}");
    EXPECT_EQ(schema.canonical_directive("x"), "c");
    EXPECT_EQ(schema.canonical_directive("b"), "b");
}

TEST(Loader, SortsPrefixesLongestFirst) {
    const InputSchema schema = InputSchema::from_yaml("method_prefixes: {r: , xyz: , ro: , '': }");
    std::vector<std::string> prefixes;
    for (const MethodPrefixSpec& prefix : schema.tables().method_prefixes) {
        prefixes.push_back(prefix.prefix);
    }
    EXPECT_THAT(prefixes, ElementsAre("xyz", "ro", "r", ""));
}

TEST(Loader, SkipsKeysThatAreNoScalars) {
    const InputSchema schema = InputSchema::from_yaml("directives: {? [a] : {}, ? {b: c} : {}, d: {}}");
    EXPECT_THAT(schema.known_directives(), ElementsAre("d"));
    const InputSchema body = InputSchema::from_yaml("directives: {d: {? [min] : 3, ? {max: 1} : 3, min: 4}}");
    EXPECT_EQ(body.tables().directives.at("d"), (ValueSpec{"d", "string", {}, 4.0, {}, false}));
}

TEST(Loader, TakesTheFirstOfTwoEqualKeysOfABody) {
    const InputSchema schema =
        InputSchema::from_yaml("sections: {s: {required: true, required: false, entries: {e: {min: 1, min: 2}}}}");
    EXPECT_TRUE(schema.tables().sections.at("s").required);
    EXPECT_EQ(schema.tables().sections.at("s").entries.at("e").min, 1.0);
}

TEST(Loader, SkipsFlagsThatAreNoScalars) {
    const InputSchema schema = InputSchema::from_yaml("sections: {s: {required: [true], allow_multiple: {no: no}}}");
    EXPECT_FALSE(schema.tables().sections.at("s").required);
    EXPECT_TRUE(schema.tables().sections.at("s").allow_multiple);
}

TEST(Loader, FailsOnWhatIsNoYamlAndOnImpossibleConversions) {
    for (const char* const yaml :
         {"a: [", "a: b: c", "\"open", "word", "directives: {a: word}", "method_tokens: {hf: method}",
          "sections: {scf: word}", "sections: {scf: {entries: {conv: real}}}", "directives: {a: {required: maybe}}",
          "sections: {s: {required: 2}}", "sections: {s: {allow_multiple: often}}",
          "sections: {s: {entries: {e: {required: x}}}}", "*unknown"}) {
        EXPECT_THAT(failure(yaml), StartsWith("failed to parse AMESP input schema YAML: ")) << yaml;
        EXPECT_GT(failure(yaml).size(), std::string("failed to parse AMESP input schema YAML: ").size()) << yaml;
    }
}

struct FailureCase {
    const char* yaml;
    const char* error;
};

TEST(Loader, FailsInTheWordsAndAtThePlacesOfYamlCpp) {
    for (const FailureCase& c : {
             FailureCase{"word", "1, column 1: operator[] call on a scalar (key: \"directives\")"},
             {"\n &a !!str word", "2, column 2: operator[] call on a scalar (key: \"directives\")"},
             {"\xef\xbb\xbf word", "1, column 2: operator[] call on a scalar (key: \"directives\")"},
             {"sections: {scf: word}", "1, column 17: operator[] call on a scalar (key: \"aliases\")"},
             {"# \xc3\xa4\n'\xc3\xa4': \nmethod_tokens: {'\xc3\xa4': word}",
              "3, column 23: operator[] call on a scalar (key: \"aliases\")"},
             {"sections: {s: {required: maybe}}", "1, column 26: bad conversion"},
             {"sections: {s: {allow_multiple: &a perhaps}}", "1, column 32: bad conversion"},
             // An alias is what it stands for, where that is.
             {"x: &a word\ndirectives: {d: *a}", "1, column 4: operator[] call on a scalar (key: \"aliases\")"},
             {"x: &a maybe\nsections: {s: {required: *a}}", "1, column 4: bad conversion"},
             {"directives: {a: [b}", "1, column 19: illegal flow end"},
             {"directives: *a", "1, column 13: the referenced anchor is not defined"},
             {"%YAML 2.0\n---\n", "1, column 1: YAML major version too large"},
         }) {
        EXPECT_EQ(failure(c.yaml),
                  std::string("failed to parse AMESP input schema YAML: yaml-cpp: error at line ") + c.error)
            << c.yaml;
    }
}

TEST(Loader, ReadsAliasesAsWhatTheyStandFor) {
    const InputSchema schema = InputSchema::from_yaml(
        "x: [&name Maxcyc, &body {value_type: integer, min: &low 1}, &words [&word A, b], &yes true, &key min]\n"
        "directives: {*name : *body, c: {*key : *low, allowed: *words, required: *yes, aliases: [*word, d]}}\n"
        "method_tokens: &tokens {hf: {category: *word}}\nsections: *tokens\n");
    const InputSchema::Impl& tables = schema.tables();
    EXPECT_EQ(tables.directives.at("maxcyc"), (ValueSpec{"maxcyc", "integer", {}, 1.0, {}, false}));
    EXPECT_EQ(tables.directives.at("c"), (ValueSpec{"c", "string", {"a", "b"}, 1.0, {}, true}));
    EXPECT_EQ(schema.canonical_directive("a"), "c");
    EXPECT_EQ(schema.method_token_category("hf"), "a");
    EXPECT_THAT(schema.known_sections(), ElementsAre("hf"));
}

TEST(Loader, ExpandsNoMergeKeys) {
    const InputSchema schema = InputSchema::from_yaml("x: &a {min: 1}\ndirectives: {d: {<<: *a}, <<: {e: }}");
    EXPECT_EQ(schema.tables().directives.at("d").min, std::nullopt);
    EXPECT_THAT(schema.known_directives(), ElementsAre("<<", "d"));
}

TEST(Loader, ReadsUtf16AndUtf32) {
    std::string utf16 = "\xff\xfe";
    std::string utf32(3, '\0');
    for (const char byte : std::string_view(complete)) {
        utf16 += std::string{byte, '\0'};
        utf32 += std::string{byte, '\0', '\0', '\0'};
    }
    utf32.resize(utf32.size() - 3);  // the zeros before each byte
    EXPECT_EQ(InputSchema::from_yaml(utf16).tables(), InputSchema::from_yaml(complete).tables());
    EXPECT_EQ(InputSchema::from_yaml(utf32).tables(), InputSchema::from_yaml(complete).tables());
}

TEST(Loader, ReadsYamlBooleansInAllTheirSpellings) {
    for (const char* const word : {"true", "True", "yes", "on", "Y"}) {
        EXPECT_TRUE(InputSchema::from_yaml(std::string("sections: {s: {required: ") + word + "}}")
                        .tables()
                        .sections.at("s")
                        .required)
            << word;
    }
    EXPECT_FALSE(
        InputSchema::from_yaml("sections: {s: {allow_multiple: No}}").tables().sections.at("s").allow_multiple);
}

TEST(Loader, SurvivesHostileText) {
    using namespace std::string_literals;
    const auto repeated = [](const char* unit) {
        std::string text;
        for (int i = 0; i < 100000; ++i) {
            text += unit;
        }
        return text;
    };
    for (const std::string& text : {repeated("["), repeated("{a: "), repeated("- "), repeated("&a "), repeated("? "),
                                    "\0"s, "\xff\xfe"s, "a\0b: c"s, "directives: &x {a: *x}"s, "&a [*a]"s}) {
        EXPECT_NO_FATAL_FAILURE(failure(text));
    }
}

TEST(Loader, ReadsFilesAndNamesThePathInErrors) {
    const test::TempDir dir;
    const std::string path = dir / "schema.yaml";
    test::write_file(path, complete);
    EXPECT_EQ(InputSchema::from_file(path).tables(), InputSchema::from_yaml(complete).tables());
    test::write_file(path, "");
    EXPECT_TRUE(InputSchema::from_file(path).empty());

    const auto file_failure = [](const std::string& name) -> std::string {
        try {
            InputSchema::from_file(name);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "loaded";
    };
    test::write_file(path, "directives: {a: b}");
    EXPECT_THAT(file_failure(path), StartsWith("failed to load AMESP input schema '" + path + "': "));
    for (const std::string& unreadable : {dir / "missing", dir.path()}) {
        EXPECT_EQ(file_failure(unreadable),
                  "failed to load AMESP input schema '" + unreadable + "': bad file: " + unreadable);
    }
}

}  // namespace
}  // namespace velk::input::amesp
