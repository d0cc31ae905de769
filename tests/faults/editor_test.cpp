// Every edit with every one of its allocations failing in turn: the document stays as it was, or as the header says.
#include <functional>
#include <optional>
#include <velk/input/amesp.hpp>

#include "faults/allocations.hpp"
#include "support/sample_schema.hpp"

namespace velk::input::amesp {
namespace {

using test::fail_each_allocation;
using test::Shortage;

const std::string text =
    "# a comment that is long enough\n% maxcyc 200\n% another-long-directive-name and its long value\n"
    "! hf b3-lyp a-rather-long-token-name\n>scf with-a-rather-long-argument\n  MaxIter = 1\n"
    "a-rather-long-entry-name and its rather long value\n= bad\nend\n>xyz 0 1\n"
    "H 0 0 0 and more words here\nH 0\nend\n>unknown-section-name\nsome line that is long\nend\nloose line, and long\n";

const std::string name = "a-new-and-rather-long-name";

AIPData parsed() {
    return AIPParser::parse_string(text, test::sample_schema(), {true, false}).data;
}

struct Edit {
    const char* name;
    std::function<void(AIPEditor&)> run;
};

const Edit edits[] = {
    {"set_directive, new", [](AIPEditor& editor) { editor.set_directive(name, name); }},
    {"set_directive, old", [](AIPEditor& editor) { editor.set_directive("maxit", name); }},
    {"remove_directive", [](AIPEditor& editor) { editor.remove_directive("another-long-directive-name"); }},
    {"add_method_token", [](AIPEditor& editor) { editor.add_method_token(name); }},
    {"remove_method_token", [](AIPEditor& editor) { editor.remove_method_token("a-rather-long-token-name"); }},
    {"upsert_section, new", [](AIPEditor& editor) { editor.upsert_section(name, {name}); }},
    {"upsert_section, old", [](AIPEditor& editor) { editor.upsert_section("scfcontrol", {name}); }},
    {"remove_section", [](AIPEditor& editor) { editor.remove_section("unknown-section-name"); }},
    {"set_section_entry, new", [](AIPEditor& editor) { editor.set_section_entry("scf", name, name); }},
    {"set_section_entry, old", [](AIPEditor& editor) { editor.set_section_entry("scf", "maxiter", name); }},
    {"set_section_entry, new section", [](AIPEditor& editor) { editor.set_section_entry(name, name, name); }},
    {"remove_section_entry", [](AIPEditor& editor) { editor.remove_section_entry("scf", "a-rather-long-entry-name"); }},
};

TEST(FailingAllocation, LeavesTheDocumentOfAFailedEditAsItWas) {
    const AIPData before = parsed();
    for (const Edit& edit : edits) {
        AIPEditor done(before, test::sample_schema());
        edit.run(done);
        ASSERT_NE(done.data(), before) << edit.name;
        const long count = fail_each_allocation(edit.name, [&](Shortage& shortage) {
            AIPEditor editor(before, test::sample_schema());
            const bool failed = shortage.strikes([&] { edit.run(editor); });
            EXPECT_EQ(editor.data(), failed ? before : done.data()) << edit.name;
        });
        EXPECT_GT(count, 0) << edit.name;
    }
}

// A section that another schema read has its mode and name brought up to date with the entry, or not at all.
TEST(FailingAllocation, LeavesAStaleSectionAsItWasWhenItsEntryIsNotSet) {
    AIPData before;
    before.sections.emplace_back().name = "SCF";
    fail_each_allocation("set_section_entry, stale section", [&](Shortage& shortage) {
        AIPEditor editor(before, test::sample_schema());
        if (shortage.strikes([&] { editor.set_section_entry("scf", name, name); })) {
            EXPECT_EQ(editor.data(), before);
        } else {
            EXPECT_EQ(editor.data().sections[0].name, "scf");
            EXPECT_EQ(editor.data().sections[0].entries.size(), 1U);
        }
    });
}

TEST(FailingAllocation, LeavesTheMethodLineWithTheTokensAppendedSoFar) {
    const std::vector<std::string> tokens = {"a-rather-long-token-number-one", "a-rather-long-token-number-two"};
    fail_each_allocation("set_method_tokens", [&](Shortage& shortage) {
        AIPEditor editor(parsed(), test::sample_schema());
        const bool failed = shortage.strikes([&] { editor.set_method_tokens(tokens); });
        const std::vector<MethodToken>& found = editor.data().method_tokens;
        EXPECT_EQ(found.size() < 2U, failed);
        for (std::size_t i = 0; i < found.size() && i < 2; ++i) {
            EXPECT_EQ(found[i].text, tokens[i]);
        }
    });
}

TEST(FailingAllocation, LeavesOtherSectionsAloneWhenAGeometryIsReplaced) {
    const AIPData before = parsed();
    fail_each_allocation("set_xyz_geometry", [&](Shortage& shortage) {
        AIPEditor editor(before, test::sample_schema());
        std::vector<AtomRecord> atoms = {{"H", 0, 0, 0, "a long raw line of text", {}}};
        const bool failed = shortage.strikes([&] { editor.set_xyz_geometry(0, 1, std::move(atoms)); });
        EXPECT_EQ(editor.data().sections.front(), before.sections.front());
        EXPECT_EQ(editor.data().directives, before.directives);
        const Section* const geometry = editor.data().find_section("xyz");
        if (failed) {
            EXPECT_TRUE(geometry == nullptr || *geometry == before.sections[1]);
        } else {
            EXPECT_EQ(geometry->atoms.size(), 1U);
            EXPECT_EQ(geometry, &editor.data().sections.back());
        }
    });
}

TEST(FailingAllocation, LeavesMadeRecordsAndNewEditorsWithoutAResult) {
    const AIPData before = parsed();
    fail_each_allocation("make_method_token", [&](Shortage& shortage) {
        const AIPEditor editor(before, test::sample_schema());
        MethodToken made;
        if (!shortage.strikes([&] { made = editor.make_method_token(name); })) {
            EXPECT_EQ(made.text, name);
        }
        EXPECT_EQ(editor.data(), before);
    });
    fail_each_allocation("make_section", [&](Shortage& shortage) {
        const AIPEditor editor(before, test::sample_schema());
        Section made;
        if (!shortage.strikes([&] { made = editor.make_section(name, {name}); })) {
            EXPECT_EQ(made.name, name);
        }
        EXPECT_EQ(editor.data(), before);
    });
    AIPData other;
    other.preserved_lines = {name + name};
    fail_each_allocation("set_data", [&](Shortage& shortage) {
        AIPEditor editor(before, test::sample_schema());
        const bool failed = shortage.strikes([&] { editor.set_data(other); });
        EXPECT_EQ(editor.data(), failed ? before : other);
    });
}

// Edits of every kind written into the text at once, a record that cannot be written among them.
void edit_everything(AIPEditor& editor, bool geometry) {
    editor.set_directive("maxcyc", name);
    editor.set_directive(name, name);
    editor.remove_directive("another-long-directive-name");
    editor.remove_method_token("hf");
    editor.add_method_token(name);
    editor.add_method_token("two words");
    editor.upsert_section("scf", {name});
    editor.set_section_entry("scf", "maxcyc", "2");
    editor.set_section_entry("scf", name, name);
    editor.set_section_entry("a-new-section-with-a-long-name", name, name);
    editor.remove_section("unknown-section-name");
    if (geometry) {
        editor.set_xyz_geometry(1, 2, {{"H", 0, 0, 0, "", {}}, {"He", 0, 0, 1, "", {}}});
    }
}

TEST(FailingAllocation, LeavesNothingLaidOverATextInPart) {
    for (const bool geometry : {false, true}) {
        AIPEditor editor(parsed(), test::sample_schema());
        edit_everything(editor, geometry);
        const OverlayResult expected = editor.render_over(text);
        ASSERT_EQ(expected.problems.size(), 2U);  // the two words, and the entry in lines kept as written
        ASSERT_NE(expected.text, text);
        const long count = fail_each_allocation("render_over", [&](Shortage& shortage) {
            std::optional<OverlayResult> result;
            if (!shortage.strikes([&] { result = editor.render_over(text); })) {
                EXPECT_EQ(result->text, expected.text);
                EXPECT_EQ(result->problems, expected.problems);
            }
        });
        EXPECT_GT(count, 50);
    }
}

}  // namespace
}  // namespace velk::input::amesp
