// Every operation with every one of its allocations failing in turn: only std::bad_alloc escapes, and what was promised
// of the document holds.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "support/sample_schema.hpp"

namespace {

// Allocations left until one fails; negative: none fails.
thread_local long allocations_left = -1;

bool next_allocation_fails() {
    return allocations_left >= 0 && allocations_left-- == 0;
}

}  // namespace

void* operator new(std::size_t size) {
    if (next_allocation_fails()) {
        throw std::bad_alloc();
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return next_allocation_fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}

namespace velk::input::amesp {
namespace {

const std::string text =
    "# a comment that is long enough\n% maxcyc 200\n% another-long-directive-name and its long value\n"
    "! hf b3-lyp a-rather-long-token-name\n>scf with-a-rather-long-argument\n  MaxIter = 1\n"
    "a-rather-long-entry-name and its rather long value\n= bad\nend\n>xyz 0 1\n"
    "H 0 0 0 and more words here\nH 0\nend\n>unknown-section-name\nsome line that is long\nend\nloose line, and long\n";

// Runs `operation` with its first allocation failing, then its second, and so on until it succeeds. After each failure
// `check` runs.
void fail_each_allocation(const std::function<void()>& operation, const std::function<void()>& check) {
    for (long failing = 0;; ++failing) {
        ASSERT_LT(failing, 100000);
        allocations_left = failing;
        bool failed = false;
        try {
            operation();
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        allocations_left = -1;
        if (!failed) {
            return;
        }
        check();
    }
}

TEST(FailingAllocation, LeavesParseValidateAndRenderWithoutAResult) {
    const InputSchema& schema = test::sample_schema();
    const ParseResult expected = AIPParser::parse_string(text, schema, {true, true});
    ParseResult result;
    fail_each_allocation([&] { result = AIPParser::parse_string(text, schema, {true, true}); }, [] {});
    EXPECT_EQ(result, expected);
    const AIPEditor editor(result.data, schema);
    std::string rendered;
    fail_each_allocation([&] { rendered = editor.render(); }, [] {});
    EXPECT_EQ(rendered, AIPEditor(expected.data, schema).render());
}

TEST(FailingAllocation, LetsNothingButTheStatedErrorOutOfTheLoader) {
    const std::string yaml = "directives: {a-rather-long-directive-name: {min: 1, allowed: [x, y]}}\n";
    for (long failing = 0; failing < 100000; ++failing) {
        allocations_left = failing;
        bool done = false;
        try {
            done = InputSchema::from_yaml(yaml).is_known_directive("a-rather-long-directive-name");
        } catch (const std::bad_alloc&) {
        } catch (const std::runtime_error& error) {
            allocations_left = -1;
            EXPECT_TRUE(std::string(error.what()).starts_with("failed to parse AMESP input schema YAML: "));
        }
        allocations_left = -1;
        if (done) {
            return;
        }
    }
    FAIL() << "never loaded";
}

struct Edit {
    const char* name;
    std::function<void(AIPEditor&)> run;
};

TEST(FailingAllocation, LeavesTheDocumentOfAFailedEditAsItWas) {
    const InputSchema& schema = test::sample_schema();
    const AIPData before = AIPParser::parse_string(text, schema, {true, false}).data;
    const std::string name = "a-new-and-rather-long-name";
    const Edit edits[] = {
        {"set_directive, new", [&](AIPEditor& editor) { editor.set_directive(name, name); }},
        {"set_directive, old", [&](AIPEditor& editor) { editor.set_directive("maxit", name); }},
        {"remove_directive", [&](AIPEditor& editor) { editor.remove_directive("another-long-directive-name"); }},
        {"add_method_token", [&](AIPEditor& editor) { editor.add_method_token(name); }},
        {"remove_method_token", [&](AIPEditor& editor) { editor.remove_method_token("a-rather-long-token-name"); }},
        {"upsert_section, new", [&](AIPEditor& editor) { editor.upsert_section(name, {name}); }},
        {"upsert_section, old", [&](AIPEditor& editor) { editor.upsert_section("scfcontrol", {name}); }},
        {"remove_section", [&](AIPEditor& editor) { editor.remove_section("unknown-section-name"); }},
        {"set_section_entry, new", [&](AIPEditor& editor) { editor.set_section_entry("scf", name, name); }},
        {"set_section_entry, old", [&](AIPEditor& editor) { editor.set_section_entry("scf", "maxiter", name); }},
        {"remove_section_entry",
         [&](AIPEditor& editor) { editor.remove_section_entry("scf", "a-rather-long-entry-name"); }},
    };
    for (const Edit& edit : edits) {
        AIPEditor editor(before, schema);
        fail_each_allocation([&] { edit.run(editor); }, [&] { ASSERT_EQ(editor.data(), before) << edit.name; });
        EXPECT_NE(editor.data(), before) << edit.name;
    }
}

TEST(FailingAllocation, LeavesTheMethodLineWithTheTokensAppendedSoFar) {
    const std::vector<std::string> tokens = {"a-rather-long-token-number-one", "a-rather-long-token-number-two"};
    AIPEditor editor({}, test::sample_schema());
    fail_each_allocation([&] { editor.set_method_tokens(tokens); },
                         [&] {
                             for (std::size_t i = 0; i < editor.data().method_tokens.size(); ++i) {
                                 ASSERT_EQ(editor.data().method_tokens[i].text, tokens[i]);
                             }
                         });
    EXPECT_EQ(editor.data().method_tokens.size(), 2U);
}

TEST(FailingAllocation, LeavesOtherSectionsAloneWhenAGeometryIsReplaced) {
    const AIPData before = AIPParser::parse_string(text, test::sample_schema(), {true, false}).data;
    AIPEditor editor(before, test::sample_schema());
    fail_each_allocation(
        [&] {
            editor.set_xyz_geometry(0, 1, {{"H", 0, 0, 0, "a long raw line of text", {}}});
        },
        [&] {
            ASSERT_EQ(editor.data().sections.front(), before.sections.front());
            ASSERT_EQ(editor.data().directives, before.directives);
            const Section* const geometry = editor.data().find_section("xyz");
            ASSERT_TRUE(geometry == nullptr || *geometry == before.sections[1]);
        });
    EXPECT_EQ(editor.data().sections.back().atoms.size(), 1U);
}

}  // namespace
}  // namespace velk::input::amesp
