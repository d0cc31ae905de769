// What is reported instead of being written as something else.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;
using input::amesp::AtomRecord;
using input::amesp::IssueSeverity;

struct NotWritten {
    std::string name;
    std::string text;
    Edit edit;
    std::string expected;  // the text that stays
    std::string code;
};

void expect_not_written(const std::vector<NotWritten>& cases) {
    for (const NotWritten& c : cases) {
        SCOPED_TRACE(c.name);
        const auto result = edited_in_place(c.text, c.edit);
        EXPECT_EQ(result.text, c.expected);
        ASSERT_EQ(result.problems.size(), 1u);
        EXPECT_EQ(result.problems[0].code, c.code);
        EXPECT_EQ(result.problems[0].severity, IssueSeverity::Error);
    }
}

Edit directive(std::string name, std::string value) {
    return [=](AIPEditor& editor) { editor.set_directive(name, value); };
}

Edit entry(std::string section, std::string key, std::string value) {
    return [=](AIPEditor& editor) { editor.set_section_entry(section, key, value); };
}

TEST(NotWritten, IsWhatNoLineReadsBackAs) {
    const std::string code = "amesp.not_expressible";
    const std::string text = "% title x\n! hf\n>scf\n  note a\nend\n>notes\nfree\nend\n";
    expect_not_written({
        {"a directive's value with a line feed", text, directive("title", "a\nb"), text, code},
        {"one that would look like lines without meaning", text, directive("title", "a\n%"), text, code},
        {"a new directive's value with a line feed", text, directive("nprocs", "1\n2"), text, code},
        {"a directive's name with a blank", text, directive("my name", "1"), text, code},
        {"a directive of nothing", text, directive("", ""), text, code},
        {"a token of nothing", text,
         [](AIPEditor& editor) {
             auto data = editor.data();
             data.method_tokens.push_back({});
             editor.set_data(data);
         },
         text, code},
        {"a directive without a name", text, directive("", "1"), text, code},
        {"a token with a blank", text, [](AIPEditor& editor) { editor.add_method_token("opt freq"); }, text, code},
        {"an entry's value with a line feed", text, entry("scf", "note", "a\nend\n"), text, "amesp.not_expressible"},
        {"a new entry's key with a blank", text, entry("scf", "my key", "1"), text, code},
        {"a new entry's key with a =", text, entry("scf", "a=b", "1"), text, code},
        {"an entry without a key", text, entry("scf", "", "1"), text, code},
        {"an entry that reads as a comment", text, entry("scf", "#a", "1"), text, code},
        {"an entry that reads as an atom", ">xyz 0 1\nend\n", entry("xyz", "H", "0 0 0"), ">xyz 0 1\nend\n", code},
        {"an entry of a raw section", text, entry("notes", "a", "1"), text, code},
        {"a header argument with a blank", text, [](AIPEditor& editor) { editor.upsert_section("scf", {"a b"}); }, text,
         code},
        {"a new section without a name", text, [](AIPEditor& editor) { editor.upsert_section("", {}); }, text, code},
        {"a new section's name with a blank", text, [](AIPEditor& editor) { editor.upsert_section("a b", {}); }, text,
         code},
        {"atoms of a section of entries", text,
         [](AIPEditor& editor) {
             editor.upsert_section("scf", {}).atoms.push_back({"H", 0, 0, 0, "", {}});
         },
         text, code},
        {"atoms of a new section of entries", text,
         [](AIPEditor& editor) {
             editor.upsert_section("opt", {}).atoms.push_back({"H", 0, 0, 0, "", {}});
         },
         text, code},
        {"a directive's new name with a blank", text,
         [](AIPEditor& editor) {
             auto data = editor.data();
             data.directives[0].name = "my name";
             editor.set_data(data);
         },
         text, code},
        {"header arguments that hold body lines", text,
         [](AIPEditor& editor) { editor.upsert_section("scf", {"a\nconv 1"}); }, text, code},
        {"an entry of a new raw section", text, entry("frob", "a", "1"), text, code},
        {"an entry of a new raw section with arguments", "",
         [](AIPEditor& editor) {
             editor.upsert_section("frob", {"x"});
             editor.set_section_entry("frob", "a", "1");
         },
         ">frob x\nend\n", code},
        {"an entry of a new raw section with a line", "",
         [](AIPEditor& editor) {
             editor.upsert_section("frob", {}).raw_lines = {"  x"};
             editor.set_section_entry("frob", "a", "1");
         },
         ">frob\n  x\nend\n", code},
        {"a kept line of a new section that is an entry", "",
         [](AIPEditor& editor) { editor.upsert_section("scf", {}).raw_lines = {"a 1"}; }, "", code},
        {"a kept line that would end its section", "",
         [](AIPEditor& editor) { editor.upsert_section("notes", {}).raw_lines = {"End"}; }, "", code},
    });
}

struct Named {
    std::string record;
    std::string text;
    Edit edit;
};

TEST(NotWritten, IsNamedInTheMessage) {
    const std::string text = "% title x\n! hf\n>scf\n  note a\nend\n";
    const auto sections = [](std::string name, std::vector<std::string> arguments, auto edit) {
        return [=](AIPEditor& editor) { edit(editor.upsert_section(name, arguments)); };
    };
    const auto as_it_is = [](auto&) {};
    const auto with_atom = [](auto& section) { section.atoms.push_back({"H", 0, 0, 0, "", {}}); };
    const auto with_bad_atom = [](auto& section) { section.atoms.push_back({"", 0, 0, 0, "", {}}); };
    const auto with_end = [](auto& section) { section.raw_lines = {"end"}; };
    const Edit new_geometry = [](AIPEditor& editor) {
        editor.set_xyz_geometry(0, 1, {});
        editor.upsert_section("xyz", {}).raw_lines = {"end"};
    };
    const Named cases[] = {
        {"Directive 'title'", text, directive("title", "a\nb")},
        {"Directive 'nprocs'", text, directive("nprocs", "1\n2")},
        {"Method-line token 'opt freq'", text, [](AIPEditor& editor) { editor.add_method_token("opt freq"); }},
        {"The header of section '>scf'", text, sections("scf", {"a b"}, as_it_is)},
        {"Section '>a b'", text, sections("a b", {}, as_it_is)},
        {"Entry 'note' of section '>scf'", text, entry("scf", "note", "a\nb")},
        {"Entry 'my key' of section '>scf'", text, entry("scf", "my key", "1")},
        {"Entry 'my key' of section '>opt'", text, entry("opt", "my key", "1")},
        {"The atoms of section '>scf'", text, sections("scf", {}, with_atom)},
        {"The atoms of section '>opt'", text, sections("opt", {}, with_atom)},
        {"Atom 2 of section '>xyz'", ">xyz 0 1\nH 0 0 0\nend\n", sections("xyz", {}, with_bad_atom)},
        {"Atom 1 of section '>xyz'", text, sections("xyz", {}, with_bad_atom)},
        {"A kept line of section '>notes'", text, sections("notes", {}, with_end)},
        {"A kept line of section '>xyz'", ">xyz 0 1\nend\n", new_geometry},
    };
    for (const Named& c : cases) {
        SCOPED_TRACE(c.record);
        const auto result = edited_in_place(c.text, c.edit);
        ASSERT_EQ(result.problems.size(), 1u);
        EXPECT_EQ(result.problems[0].message,
                  c.record + " cannot be written so that it reads back as itself; it was not written.");
    }
}

TEST(NotWritten, IsWhatDoesNotGoWithTheText) {
    const std::string code = "amesp.not_of_this_text";
    const std::string text =
        "# c\n% title x\n% nprocs 1\n! hf opt\n# d\n>scf\n  note a\n  conv 1\nend\n>notes\nfree\nend\n";
    const auto change = [](auto edit) {
        return [=](AIPEditor& editor) {
            auto data = editor.data();
            edit(data);
            editor.set_data(data);
        };
    };
    expect_not_written({
        {"directives in another order", text,
         change([](auto& data) { std::swap(data.directives[0], data.directives[1]); }), text, code},
        {"a directive of another text", text, change([](auto& data) { data.directives[1].location->line = 77; }), text,
         code},
        {"tokens in another order", text,
         change([](auto& data) { std::swap(data.method_tokens[0], data.method_tokens[1]); }), text, code},
        {"a token of another line", text, change([](auto& data) { data.method_tokens[0].location->line = 1; }), text,
         code},
        {"a token of another column", text, change([](auto& data) { data.method_tokens[1].location->column = 4; }),
         text, code},
        {"a token twice", text, change([](auto& data) { data.method_tokens.push_back(data.method_tokens[1]); }), text,
         code},
        {"sections in another order", text, change([](auto& data) { std::swap(data.sections[0], data.sections[1]); }),
         text, code},
        {"entries in another order", text,
         change([](auto& data) { std::swap(data.sections[0].entries[0], data.sections[0].entries[1]); }), text, code},
        {"a directive of another column", text, change([](auto& data) { data.directives[1].location->column = 77; }),
         text, code},
        {"a kept line", text, change([](auto& data) { data.sections[1].raw_lines[0] = "bound"; }), text, code},
        {"a directive of another length", text, change([](auto& data) { data.directives[1].location->length = 77; }),
         text, code},
        {"a header comment", text, change([](auto& data) { data.header_comments.clear(); }), text, code},
        {"a later comment", text, change([](auto& data) { data.preserved_lines.push_back("# e"); }), text, code},
    });
}

// The document of one text, written into another one.
TEST(NotWritten, IsADocumentOfAnotherText) {
    const std::string own = "% title x\n! hf\n>scf\n  note a\nend\n>xyz 0 1\nH 0 0 0\nend\n>notes\nfree\nend\n";
    const AIPEditor editor(input::amesp::AIPParser::parse_string(own, in_place_schema(), {true, false}).data,
                           in_place_schema());
    const auto changed = [&](const std::string& from, const std::string& to) {
        std::string text = own;
        return text.replace(text.find(from), from.size(), to);
    };
    const std::pair<std::string, std::string> cases[] = {
        {"The list of directives", changed("title x", "title longer")},
        {"The list of sections", changed(">scf", ">scf a")},
        {"The list of entries of section '>scf'", changed("note a", "note b")},
        {"The list of entries of section '>scf'", changed("  note a", "  note  a")},
        {"The list of atoms of section '>xyz'", changed("H 0 0 0", "H 0 0 1")},
        {"The list of kept lines of section '>notes'", changed("free", "fred")},
    };
    for (const auto& [list, text] : cases) {
        SCOPED_TRACE(text);
        const auto result = editor.render_over(text);
        EXPECT_EQ(result.text, text);
        ASSERT_EQ(result.problems.size(), 1U);
        EXPECT_EQ(result.problems[0].code, "amesp.not_of_this_text");
        EXPECT_EQ(result.problems[0].message,
                  list + " does not agree with the text to change; the text was left as it was.");
    }
}

TEST(NotWritten, IsAnAtomOfAnotherTextInASectionThatStays) {
    const std::string text = ">xyz 0 1\nH 0 0 0\nend\n";
    const auto with = [](AtomRecord atom) {
        return [=](AIPEditor& editor) { editor.upsert_section("xyz", {}).atoms = {atom}; };
    };
    const AtomRecord other{"He", 0, 0, 0, "He 0 0 0", input::amesp::SourceLocation{2, 1, 8}};
    AtomRecord beyond = other;
    beyond.location->line = 4;
    expect_not_written({{"of another line", text, with(other), text, "amesp.not_of_this_text"},
                        {"of a line that is not there", text, with(beyond), text, "amesp.not_of_this_text"}});
    expect_edited({{"one that says nothing of its place", text, with({"He", 0, 0, 0, "He 0 0 0", {}}),
                    ">xyz 0 1\nHe 0 0 0\nend\n"},
                   {"one in a new geometry", text, [&](AIPEditor& editor) { editor.set_xyz_geometry(0, 1, {beyond}); },
                    ">xyz 0 1\nHe 0 0 0\nend\n"}});
}

TEST(NotWritten, NamesTheListThatDoesNotGoWithTheText) {
    const auto changed = [](auto edit) {
        return edited_in_place("# c\n% a\n% b\n! hf opt\n>scf\n  note a\n  conv 1\nend\n>opt\nend\n",
                               [&](AIPEditor& editor) {
                                   auto data = editor.data();
                                   edit(data);
                                   editor.set_data(data);
                               });
    };
    const auto message = [](const std::string& list) {
        return list + " does not agree with the text to change; the text was left as it was.";
    };
    const auto entries = changed([](auto& d) { std::swap(d.sections[0].entries[0], d.sections[0].entries[1]); });
    ASSERT_EQ(entries.problems.size(), 1U);
    EXPECT_EQ(entries.problems[0].message, message("The list of entries of section '>scf'"));
    EXPECT_EQ(entries.problems[0].location->line, 5U);
    const auto directives = changed([](auto& d) { std::swap(d.directives[0], d.directives[1]); });
    ASSERT_EQ(directives.problems.size(), 1U);
    EXPECT_EQ(directives.problems[0].message, message("The list of directives"));
    const auto tokens = changed([](auto& d) { std::swap(d.method_tokens[0], d.method_tokens[1]); });
    ASSERT_EQ(tokens.problems.size(), 1U);
    EXPECT_EQ(tokens.problems[0].message, message("The list of method-line tokens"));
    const auto sections = changed([](auto& d) { std::swap(d.sections[0], d.sections[1]); });
    ASSERT_EQ(sections.problems.size(), 1U);
    EXPECT_EQ(sections.problems[0].message, message("The list of sections"));
    const auto comments = changed([](auto& d) { d.header_comments.clear(); });
    ASSERT_EQ(comments.problems.size(), 1U);
    EXPECT_EQ(comments.problems[0].message, message("The list of header comments"));
    const auto kept = changed([](auto& d) { d.preserved_lines.push_back("# e"); });
    ASSERT_EQ(kept.problems.size(), 1U);
    EXPECT_EQ(kept.problems[0].message, message("The list of preserved lines"));
    const auto raw = changed([](auto& d) { d.sections[0].raw_lines.push_back("# e"); });
    ASSERT_EQ(raw.problems.size(), 1U);
    EXPECT_EQ(raw.problems[0].message, message("The list of kept lines of section '>scf'"));
}

TEST(NotWritten, LeavesTheEntriesBelowAHeaderToBeWritten) {
    const auto result = edited_in_place(">SCF a\n  note x\nend\n", [](AIPEditor& editor) {
        editor.upsert_section("scf", {"a b"});
        editor.set_section_entry("scf", "note", "y");
        editor.set_section_entry("scf", "conv", "1");
    });
    EXPECT_EQ(result.text, ">SCF a\n  note y\n  conv 1\nend\n");
    EXPECT_EQ(result.problems.size(), 1u);
}

TEST(NotWritten, LeavesEveryOtherEditToBeWritten) {
    const auto result = edited_in_place("% title x\n! hf\n", [](AIPEditor& editor) {
        editor.set_directive("title", "a\nb");
        editor.set_directive("nprocs", "4");
        editor.add_method_token("opt");
    });
    EXPECT_EQ(result.text, "% title x\n% nprocs 4\n! hf opt\n");
    ASSERT_EQ(result.problems.size(), 1u);
    EXPECT_EQ(result.problems[0].location->line, 1u);
    EXPECT_NE(result.problems[0].message.find("Directive 'title'"), std::string::npos);
}

}  // namespace
}  // namespace velk::test
