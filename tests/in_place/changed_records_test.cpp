// Documents that were changed by other means than the editor's operations: their records still find their lines.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPData;
using input::amesp::AIPEditor;
using input::amesp::AIPParser;
using input::amesp::InputSchema;

template <class Change>
Edit change(Change change_data) {
    return [=](AIPEditor& editor) {
        AIPData data = editor.data();
        change_data(data);
        editor.set_data(data);
    };
}

Edit rename_directive(std::string name, std::string value) {
    return change([=](AIPData& data) {
        data.directives[0].name = name;
        data.directives[0].value = value;
    });
}

Edit rename_entry(std::string key, std::string value) {
    return change([=](AIPData& data) {
        data.sections[0].entries[0].key = key;
        data.sections[0].entries[0].value = value;
    });
}

TEST(ChangedRecords, PutTheirNewNameIntoTheirLine) {
    expect_edited({
        {"a directive", "%  Title   x \n", rename_directive("nprocs", "4"), "%  nprocs   4 \n"},
        {"a directive, the value as it was", "%  Title   x \n", rename_directive("nprocs", "x"), "%  nprocs   x \n"},
        {"a directive without a value", " % Title\n! hf\n", rename_directive("nprocs", ""), " % nprocs\n! hf\n"},
        {"another spelling of its name", "% Title x\n", rename_directive("TITLE", "y"), "% Title y\n"},
        {"an entry", ">scf\n  Guess = a\nend\n", rename_entry("conv", "1"), ">scf\n  conv = 1\nend\n"},
        {"an entry, the value as it was", ">scf\n guess  a\nend\n", rename_entry("note", "a"), ">scf\n note  a\nend\n"},
        {"an entry that takes an equals sign", ">scf\n  guess   a\nend\n", rename_entry("note", "a=b"),
         ">scf\n  note = a=b\nend\n"},
        {"an entry, another spelling", ">scf\n  Guess = a\nend\n", rename_entry(" MaxIter\n", "1"),
         ">scf\n  maxcyc = 1\nend\n"},
        {"a section", " >  SCF a\nend\n", change([](AIPData& data) { data.sections[0].name = "opt"; }),
         " >  opt a\nend\n"},
    });
}

TEST(ChangedRecords, StandBeforeTheRecordThatFollowsThemInTheirList) {
    expect_edited({
        {"a directive", "# c\n% title x\n% nprocs 2\n", change([](AIPData& data) {
             data.directives.insert(data.directives.begin(), {"maxcore", "1", true, {}});
         }),
         "% maxcore 1\n# c\n% title x\n% nprocs 2\n"},
        {"a directive between two", "% title x\n# c\n% nprocs 2\n", change([](AIPData& data) {
             data.directives.insert(data.directives.begin() + 1, {"maxcore", "1", true, {}});
         }),
         "% title x\n% maxcore 1\n# c\n% nprocs 2\n"},
        {"two directives, each before another", "# c\n% title x\n# d\n# e\n% nprocs 2\n", change([](AIPData& data) {
             data.directives.insert(data.directives.begin() + 1, {{"a", "1", true, {}}, {"b", "2", true, {}}});
             data.directives.insert(data.directives.begin(), {"z", "0", true, {}});
         }),
         "% z 0\n# c\n% title x\n% a 1\n% b 2\n# d\n# e\n% nprocs 2\n"},
        {"an entry", ">scf\n# c\n  conv 1\nend\n", change([](AIPData& data) {
             auto& entries = data.sections[0].entries;
             entries.insert(entries.begin(), {"guess", "x", true, "", {}});
         }),
         ">scf\n# c\n  guess x\n  conv 1\nend\n"},
    });
}

TEST(ChangedRecords, AreSpelledAsRenderingSpellsThem) {
    expect_edited({
        {"a new entry", ">scf\nend\n", change([](AIPData& data) {
             data.sections[0].entries.push_back({" MaxIter", "1", true, "", {}});
         }),
         ">scf\n  maxcyc 1\nend\n"},
        {"an entry of a new section", "", change([](AIPData& data) {
             data.sections.push_back({});
             data.sections[0].name = "SCF";
             data.sections[0].entries.push_back({"MaxIter", "1", true, "", {}});
         }),
         ">scf\n  maxcyc 1\nend\n"},
    });
}

TEST(ChangedRecords, AreWrittenFromTheTextOfATokenWithoutCanonicalForm) {
    expect_edited({
        {"alone", "", change([](AIPData& data) {
             data.method_tokens.push_back({"OPT", "", "", false, {}});
         }),
         "! opt\n"},
        {"after another", "! hf\n", change([](AIPData& data) {
             data.method_tokens.push_back({"OPT", "", "", false, {}});
         }),
         "! hf opt\n"},
    });
}

// Where the canonical name of a canonical name is another one still, only the token's own spelling gives the token.
TEST(ChangedRecords, AreSpelledAsTheyWereGivenWhereTheCanonicalFormReadsAsAnother) {
    const auto schema =
        InputSchema::from_yaml("method_tokens: {b: {aliases: [a]}, c: {aliases: [b]}, d: {aliases: [c]}}");
    AIPEditor editor(AIPParser::parse_string("# c\n", schema, {true, false}).data, schema);
    editor.add_method_token("A");
    const auto result = editor.render_over("# c\n");
    EXPECT_EQ(result.text, "# c\n! A\n");
    EXPECT_TRUE(result.problems.empty());
}

TEST(ChangedRecords, AreSpelledAsTheyWereGivenWhereTheCanonicalNameHoldsABlank) {
    const auto schema = InputSchema::from_yaml(
        "sections: {scf: {parse_mode: key_value, entries: {my key: {aliases: [mykey]}, note: }}}");
    const std::string text = ">scf\n  note x\nend\n";
    AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    data.sections[0].entries[0].key = "MyKey";
    data.sections[0].entries.push_back({"MyKey", "1", true, "", {}});
    const auto result = AIPEditor(data, schema).render_over(text);
    EXPECT_EQ(result.text, ">scf\n  MyKey x\n  MyKey 1\nend\n");
    EXPECT_TRUE(result.problems.empty());
}

TEST(ChangedRecords, KeepTheArgumentsOfASectionThatIsNoGeometryWithChargeAndMultiplicity) {
    const auto with_numbers = [](std::string name, std::optional<std::int32_t> charge,
                                 std::optional<std::int32_t> multiplicity) {
        return [=](AIPEditor& editor) {
            auto& section = editor.upsert_section(name, {"a"});
            section.charge = charge;
            section.multiplicity = multiplicity;
        };
    };
    expect_edited({
        {"new, no geometry", "! hf\n", with_numbers("scf", 0, 1), "! hf\n\n>scf a\nend\n"},
        {"new, charge alone", "! hf\n", with_numbers("xyz", 0, {}), "! hf\n\n>xyz a\nend\n"},
        {"new, multiplicity alone", "! hf\n", with_numbers("xyz", {}, 1), "! hf\n\n>xyz a\nend\n"},
        {"new, both", "! hf\n", with_numbers("xyz", -1, 2), "! hf\n\n>xyz -1 2\nend\n"},
        {"no geometry", ">scf 0 1\nend\n", with_numbers("scf", 0, 1), ">scf a\nend\n"},
        {"charge alone", ">xyz 0 1\nend\n", with_numbers("xyz", 5, {}), ">xyz a\nend\n"},
    });
}

TEST(ChangedRecords, CloseAnOpenGeometryThatStandsBeforeOtherSectionsInTheDocument) {
    const Edit geometry_first = change([](AIPData& data) {
        std::swap(data.sections[0], data.sections[1]);
        data.sections[0].location.reset();
        data.sections[0].terminated = true;
    });
    expect_edited({
        {"", ">scf\nend\n>xyz 0 1\nH 0 0 0\n", geometry_first, ">scf\nend\n>xyz 0 1\nH 0 0 0\nend\n"},
    });
}

}  // namespace
}  // namespace velk::test
