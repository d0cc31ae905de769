// Huge and random inputs: no content makes the parser throw, and every line is accounted for.
#include <gtest/gtest.h>

#include <random>
#include <velk/core/text.hpp>

#include "support/parse.hpp"

namespace velk::input::amesp {
namespace {

using test::parse;
using test::sample_schema;

constexpr int many = 200000;

std::string repeated(const std::string& unit, int count) {
    std::string text;
    text.reserve(unit.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        text += unit;
    }
    return text;
}

TEST(HostileText, ManyOfEveryRecordAreReadAndChecked) {
    const std::string cases[] = {repeated(">scf\nend\n", many),  ">scf\n" + repeated("conv 1\n", many) + "end\n",
                                 "!" + repeated(" hf", many),    "!" + repeated(" !", many),
                                 repeated("! x\n", many),        ">xyz 0 1\n" + repeated("H 0 0 0\n", many) + "end\n",
                                 repeated("% maxcyc 0\n", many), repeated("loose\n", many),
                                 repeated("\n", many),           ">xyz 0 1\n" + repeated("H 0 0\n", many)};
    for (const std::string& text : cases) {
        const ParseResult result = AIPParser::parse_string(text, sample_schema(), {true, true});
        const AIPData& data = result.data;
        const std::size_t records =
            data.sections.size() + data.method_tokens.size() + data.directives.size() + data.preserved_lines.size() +
            (data.sections.empty()
                 ? 0
                 : data.sections[0].entries.size() + data.sections[0].atoms.size() + data.sections[0].raw_lines.size());
        EXPECT_EQ(records >= many, text[0] != '\n') << text.substr(0, 20);
    }
}

TEST(HostileText, ManyRequiredEntriesAreCheckedInEverySection) {
    std::string yaml = "sections:\n  s:\n    parse_mode: key_value\n    entries:\n";
    std::string body = ">s\n";
    for (int i = 0; i < 2000; ++i) {
        yaml += "      e" + std::to_string(i) + ": {required: true}\n";
        body += "e" + std::to_string(i) + " 1\n";
    }
    const InputSchema schema = InputSchema::from_yaml(yaml);
    const AIPData complete = parse(repeated(body + "end\n", 20), schema);
    EXPECT_EQ(schema.validate(complete).size(), 2U);  // no method line, no geometry
    EXPECT_EQ(schema.validate(parse(">s\nend\n", schema)).size(), 2002U);
}

TEST(HostileText, OneVeryLongLineIsKeptWhole) {
    const std::string word(32 << 20, 'x');
    EXPECT_EQ(parse(word).preserved_lines.at(0), word);
    EXPECT_EQ(parse("% a " + word).directives.at(0).value, word);
    EXPECT_EQ(parse("! " + word).method_tokens.at(0).text, word);
    EXPECT_EQ(parse(">xyz 0 1\nH 1" + std::string(1 << 20, '0') + " 0 0\nend").sections.at(0).raw_lines.size(), 1U);
}

// Every non-blank line is in one record or list, or is a section's end.
std::size_t lines_accounted_for(const AIPData& data) {
    std::size_t count = data.header_comments.size() + data.preserved_lines.size() + data.directives.size();
    std::uint64_t last_method_line = 0;
    for (const MethodToken& token : data.method_tokens) {
        count += token.location->line != last_method_line ? 1U : 0U;
        last_method_line = token.location->line;
    }
    for (const Section& section : data.sections) {
        count += 1 + section.entries.size() + section.atoms.size() + (section.terminated ? 1U : 0U);
        for (const std::string& line : section.raw_lines) {
            count += core::text::trim(line).empty() ? 0U : 1U;
        }
    }
    for (const ParseWarning& warning : data.warnings) {
        count += warning.code.starts_with("amesp.empty_") ? 1U : 0U;
    }
    return count;
}

TEST(HostileText, EveryLineOfRandomTextIsAccountedForOnce) {
    std::mt19937 random(30);
    const std::string pieces[] = {
        "%",    "!",    ">", "xyz", "scf", "notes", "end",  "END",    "\n",   "\n",
        "\n",   "\r\n", " ", " ",   "\t",  "=",     "conv", "1",      "0.5",  "H",
        "#",    "//",   ";", "\v",  "\f",  "\r",    "hf",   "maxcyc", "\xff", std::string(1, '\0'),
        "1D-3", "x"};
    for (int i = 0; i < 30000; ++i) {
        std::string text;
        for (std::size_t n = random() % 60; n > 0; --n) {
            text += pieces[random() % std::size(pieces)];
        }
        std::size_t lines = 0;
        for (const std::string& line : core::text::split_lines(text)) {
            lines += core::text::trim(line).empty() ? 0U : 1U;
        }
        const AIPData data = parse(text);
        ASSERT_EQ(lines_accounted_for(data), lines) << text;
    }
}

}  // namespace
}  // namespace velk::input::amesp
