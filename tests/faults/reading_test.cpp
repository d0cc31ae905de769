// Parsing, validating, rendering and looking up with every one of their allocations failing in turn.
#include <optional>
#include <velk/input/amesp.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "faults/allocations.hpp"
#include "support/sample_schema.hpp"

namespace velk::input::amesp {
namespace {

using test::fail_each_allocation;
using test::Shortage;

const std::string texts[] = {
    "",
    "# a comment that is long enough\n% maxcyc 200\n% another-long-directive-name and its long value\n"
    "! hf b3-lyp a-rather-long-token-name\n>scf with-a-rather-long-argument\n  MaxIter = 1\n"
    "a-rather-long-entry-name and its rather long value\n= bad\nend\n>xyz 0 1\n"
    "H 0 0 0 and more words here\nH 0\nend\n>unknown-section-name\nsome line that is long\nend\nloose line, and long\n",
    "% maxcyc zero, which is no whole number\r\n% solver neither-of-the-two\r\n!\r\n%\r\n>\r\n! ub3lyp sto-3g\r\n"
    ">notes of a rather long kind\r\n  a raw line, kept as it is\r\n\r\n; a comment in it\r\nend\r\n"
    ">zmat\r\n O\r\n H 1 0.96\r\n H 1 0.96 2 104.5\r\nend\r\n>geometry -1 x\r\nO 0 0 0\r\nend\r\n"
    ">xyz 0 0\r\nO 0 0 0\r\n>unterminated section with-a-long-argument",
};

void each_text_with_all_options(const std::function<void(const std::string&, const ParseOptions&)>& use) {
    for (const std::string& text : texts) {
        for (const bool preserve_unknown : {false, true}) {
            for (const bool validate : {false, true}) {
                use(text, {preserve_unknown, validate});
            }
        }
    }
}

// Runs `make` with every allocation failing: it gives all of its result, or std::bad_alloc and nothing.
template <class Make>
void expect_all_or_bad_alloc(const char* name, Make make) {
    const auto expected = make();
    fail_each_allocation(name, [&](Shortage& shortage) {
        std::optional<decltype(make())> result;
        if (shortage.strikes([&] { result.emplace(make()); })) {
            EXPECT_FALSE(result.has_value()) << name;
        } else {
            EXPECT_TRUE(result == expected) << name;
        }
    });
}

TEST(FailingAllocation, LeavesAParseWithoutAResult) {
    const InputSchema& schema = test::sample_schema();
    each_text_with_all_options([&](const std::string& text, const ParseOptions& options) {
        expect_all_or_bad_alloc("parse_string", [&] { return AIPParser::parse_string(text, schema, options); });
    });
}

TEST(FailingAllocation, LeavesValidationAndRenderingWithoutAResult) {
    const InputSchema& schema = test::sample_schema();
    for (const std::string& text : texts) {
        const AIPEditor editor(AIPParser::parse_string(text, schema, {true, false}).data, schema);
        expect_all_or_bad_alloc("validate", [&] { return schema.validate(editor.data()); });
        expect_all_or_bad_alloc("AIPEditor::validate", [&] { return editor.validate(); });
        expect_all_or_bad_alloc("render", [&] { return editor.render(); });
    }
}

// Of its text: growing would copy what there is already, time and again.
TEST(Render, AllocatesOnceForAUsualDocument) {
    std::string text =
        "# a comment\n% maxcyc 200\n% solver direct\n! hf b3-lyp sto-3g\n>scf\n  maxcyc = 50\nend\n>xyz 0 1\n";
    for (int atom = 0; atom < 200; ++atom) {
        text += "  Cl -12.3456789012 23.4567890123 -34.5678901234\n";
    }
    const AIPEditor editor(AIPParser::parse_string(text + "end\n", test::sample_schema(), {}).data,
                           test::sample_schema());
    EXPECT_EQ(fail_each_allocation("render",
                                   [&](Shortage& shortage) {
                                       std::string rendered;
                                       if (!shortage.strikes([&] { rendered = editor.render(); })) {
                                           EXPECT_GT(rendered.size(), text.size());
                                           EXPECT_LT(rendered.capacity(), rendered.size() + rendered.size() / 8);
                                       }
                                   }),
              1);
}

TEST(FailingAllocation, LeavesQueriesOfASchemaWithoutAResult) {
    const InputSchema& schema = test::sample_schema();
    const std::string name = "  A-Name-That-Is-Too-Long-For-Any-Small-Buffer-" + std::string(300, 'X') + ' ';
    expect_all_or_bad_alloc("canonical_directive", [&] { return schema.canonical_directive(name); });
    expect_all_or_bad_alloc("canonical_section", [&] { return schema.canonical_section(name); });
    expect_all_or_bad_alloc("canonical_method_token", [&] { return schema.canonical_method_token("u" + name); });
    expect_all_or_bad_alloc("canonical_entry", [&] { return schema.canonical_entry("scf", name); });
    expect_all_or_bad_alloc("method_token_category", [&] { return schema.method_token_category(name); });
    expect_all_or_bad_alloc("is_known_entry", [&] { return schema.is_known_entry(name, name); });
    expect_all_or_bad_alloc("known_method_tokens", [&] { return schema.known_method_tokens(); });
    expect_all_or_bad_alloc("known_sections", [&] { return schema.known_sections(); });
}

TEST(FailingAllocation, LeavesXyzTextWithoutAResult) {
    const std::string symbol(40, 'H');
    const std::string frame = "1\ncharge=1 spin=2\n" + symbol + " 0 0.3333333333333333 1d-3\n";
    for (const std::string& text :
         {frame, frame + frame, "1\nspin=1\n" + symbol + " 0 0 0\n", frame + "0 charge=x\n"}) {
        expect_all_or_bad_alloc("read_xyz", [&] { return read_xyz(text); });
        expect_all_or_bad_alloc("read_xyz, last frame", [&] { return read_xyz(text, {XyzOptions::last_frame}); });
    }
    const Molecule molecule = read_xyz(frame).molecule.value();
    expect_all_or_bad_alloc("write_xyz", [&] { return write_xyz(molecule); });
    expect_all_or_bad_alloc("coordinate_text", [&] { return coordinate_text(1.0 / 3); });
}

// What the header says does not allocate works when nothing can be allocated.
TEST(FailingAllocation, DoesNotConcernLookUps) {
    AIPData data = AIPParser::parse_string(texts[1], test::sample_schema(), {true, false}).data;
    const std::string name = " Another-Long-Directive-NAME ";
    Shortage shortage(test::Failing::from_there_on, 0);
    bool found = false;
    bool recognised = false;
    EXPECT_FALSE(shortage.strikes([&] {
        found = data.find_directive(name) != nullptr && data.find_section(" UNKNOWN-section-name") != nullptr &&
                data.coordinate_section() != nullptr && data.sections[0].find_entry("MAXCYC") != nullptr &&
                test::sample_schema().tables().directives.contains("maxcyc");
        recognised = AIPParser::looks_like_amesp_input(texts[1]);
    }));
    EXPECT_TRUE(found);
    EXPECT_TRUE(recognised);
    EXPECT_FALSE(shortage.struck());
}

TEST(FailingAllocation, LeavesAMapAsItWas) {
    const std::string key = "a key that is too long for a small buffer";
    fail_each_allocation("StringMap", [&](Shortage& shortage) {
        StringMap<std::string> map = {{"a", "1"}, {"b", "2"}};
        const StringMap<std::string> before = map;
        if (shortage.strikes([&] { map[key] = "x"; })) {
            EXPECT_EQ(map, before);
            EXPECT_FALSE(map.contains(key));
        }
        map[key] = "y";
        EXPECT_EQ(map.size(), 3U);
        EXPECT_EQ(std::prev(map.end())->first, key);
    });
}

}  // namespace
}  // namespace velk::input::amesp
