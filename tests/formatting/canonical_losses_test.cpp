// What canonical text cannot say.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>

#include "formatting/formatting_schema.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

AIPData read(const std::string& text) {
    return AIPParser::parse_string(text, formatting_schema(), {true, false}).data;
}

struct Case {
    const char* name;
    std::string text;
    std::string rendered;
    const char* expected;
    std::function<void(AIPData&)> change = [](AIPData&) {};
};

void expect_losses(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        AIPData data = read(c.text);
        c.change(data);
        const std::vector<Diagnostic> found =
            canonical_losses(AIPEditor(std::move(data), formatting_schema()), c.text, c.rendered);
        EXPECT_EQ(in_short(found), c.expected);
        for (const Diagnostic& diagnostic : found) {
            EXPECT_EQ(diagnostic.severity, Severity::error);
        }
    }
}

TEST(CanonicalLosses, AreDirectivesThatAreNotReadBack) {
    expect_losses({
        {"the same", "% mem 5\n%title  x \n", "% maxcore 5\n% title x\n", ""},
        {"another name", "% maxcore 5\n", "% title 5\n", "1:1 reads_differently"},
        {"another value", "% maxcore 5\n", "% maxcore 6\n", "1:1 reads_differently"},
        {"one is missing", "% maxcore 5\n% title x\n", "% maxcore 5\n", "2:1 reads_differently"},
        {"one too many", "% maxcore 5\n", "% maxcore 5\n% title x\n", "1:1 reads_differently"},
        {"one where none was", "", "% maxcore 5\n", "- reads_differently"},
        {"the first difference alone", "% maxcore 5\n% title x\n", "% title 5\n% title y\n", "1:1 reads_differently"},
        {"blanks around a value", "% title x\n", "% title x\n", "",
         [](AIPData& data) { data.directives[0].value = " x "; }},
    });
}

TEST(CanonicalLosses, AreTokensThatAreNotReadBack) {
    expect_losses({
        {"the same", "! Hartree-Fock opt\n", "! hf opt\n", ""},
        {"another one", "! hf opt\n", "! hf hf\n", "1:6 reads_differently"},
        {"made by hand", "! hf\n", "! hf\n", "", [](AIPData& data) { data.method_tokens[0].canonical.clear(); }},
        {"another one, made by hand", "! hf\n", "! opt\n", "1:3 reads_differently",
         [](AIPData& data) { data.method_tokens[0].canonical.clear(); }},
    });
}

TEST(CanonicalLosses, AreSectionsThatAreNotReadBack) {
    expect_losses({
        {"the same", ">HF-SCF a\nend\n", ">scf a\nend\n", ""},
        {"another name", ">scf\nend\n", ">notes\nend\n", "1:1 reads_differently"},
        {"another mode", ">scf\nend\n", ">scf\nend\n", "1:1 reads_differently",
         [](AIPData& data) { data.sections[0].parse_mode = SectionParseMode::raw; }},
        {"other arguments", ">scf a\nend\n", ">scf b\nend\n", "1:1 reads_differently"},
        {"no end", ">scf\nend\n", ">scf\n", "1:1 reads_differently"},
        {"numbers in another spelling", ">xyz +0 01\nend\n", ">xyz 0 1\nend\n", ""},
        {"another charge", ">xyz 0 1\nend\n", ">xyz 1 1\nend\n", "1:1 reads_differently"},
        {"another multiplicity", ">xyz 0 1\nend\n", ">xyz 0 2\nend\n", "1:1 reads_differently"},
        {"a charge alone", ">xyz 0\nend\n", ">xyz +0\nend\n", "1:1 reads_differently",
         [](AIPData& data) { data.sections[0].charge = 0; }},
        {"no numbers", ">xyz a b\nend\n", ">xyz a c\nend\n", "1:1 reads_differently"},
        {"another charge under equal arguments", ">scf a\nend\n", ">scf a\nend\n", "1:1 reads_differently",
         [](AIPData& data) { data.sections[0].charge = 1; }},
        {"another multiplicity under equal arguments", ">scf a\nend\n", ">scf a\nend\n", "1:1 reads_differently",
         [](AIPData& data) { data.sections[0].multiplicity = 1; }},
    });
}

TEST(CanonicalLosses, AreRecordsOfSectionsThatAreNotReadBack) {
    const std::string xyz = ">xyz 0 1\n";
    expect_losses({
        {"the same entry", ">scf\ntol=1\nend\n", ">scf\nconv 1\nend\n", ""},
        {"another key", ">scf\nconv 1\nend\n", ">scf\nguess 1\nend\n", "2:1 reads_differently"},
        {"another value", ">scf\nconv 1\nend\n", ">scf\nconv 2\nend\n", "2:1 reads_differently"},
        {"bodies of sections that differ", ">scf\nconv 1\nend\n", ">scf b\nconv 2\nend\n", "1:1 reads_differently"},
        {"the same atom", xyz + "H 0.12345678904 0 0\nend\n", xyz + "H 0.1234567890 0 0\nend\n", ""},
        {"another symbol", xyz + "H 0 0 0\nend\n", xyz + "He 0 0 0\nend\n", "2:1 reads_differently"},
        {"another x", xyz + "H 0 0 0\nend\n", xyz + "H 1 0 0\nend\n", "2:1 reads_differently"},
        {"another y", xyz + "H 0 0 0\nend\n", xyz + "H 0 1 0\nend\n", "2:1 reads_differently"},
        {"another z", xyz + "H 0 0 0\nend\n", xyz + "H 0 0 1\nend\n", "2:1 reads_differently"},
        {"another sign of zero", xyz + "H 0 0 0\nend\n", xyz + "H -0 0 0\nend\n", "2:1 reads_differently"},
        {"no number", xyz + "H nan 0 0\nend\n", xyz + "H nan 0 0\nend\n", ""},
        {"no number any more", xyz + "H 1 0 0\nend\n", xyz + "H nan 0 0\nend\n", "2:1 reads_differently"},
        {"a number now", xyz + "H nan 0 0\nend\n", xyz + "H 1 0 0\nend\n", "2:1 reads_differently"},
        {"the same kept line", ">notes\n a\nend\n", ">notes\na \nend\n", ""},
        {"another kept line", ">notes\na\nend\n", ">notes\nb\nend\n", "1:1 reads_differently"},
        {"one kept line more", ">notes\na\nend\n", ">notes\na\nb\nend\n", "1:1 reads_differently"},
    });
}

TEST(CanonicalLosses, AreCommentsThatAreNotReadBack) {
    expect_losses({
        {"elsewhere", "# a\n! hf\n# b\n", "! hf\n # a\n\n# b\n", ""},
        {"one is missing", "# a\n", "", "- reads_differently"},
        {"another one", "# a\n", "# b\n", "- reads_differently"},
        {"a blank one, made by hand", "", "", "", [](AIPData& data) { data.preserved_lines = {" "}; }},
    });
}

TEST(CanonicalLosses, AreWordsWithoutAPlace) {
    expect_losses({
        {"after a name that a form feed ends", "% title\fx y\n", "% title y\n", "1:1 dropped_words"},
        {"a value that a tab begins", "% title\ty\n", "% title y\n", ""},
        {"in an entry", ">scf\nguess\fx y\nend\n", ">scf\nguess y\nend\n", "2:1 dropped_words"},
        {"not in an entry with '='", ">scf\nguess\fx=y\nend\n", ">scf\nguess\fx = y\nend\n", ""},
        {"after charge and multiplicity", ">xyz 0 1 x\nend\n", ">xyz 0 1\nend\n", "1:1 dropped_words"},
        {"after a word that is no charge", ">xyz a 1 x\nend\n", ">xyz a 1 x\nend\n", ""},
        {"after a charge alone", ">xyz 0 a x\nend\n", ">xyz 0 a x\nend\n", "",
         [](AIPData& data) { data.sections[0].multiplicity.reset(); }},
        {"after coordinates", ">xyz 0 1\nH 0 0 0 x\nend\n", ">xyz 0 1\nH 0 0 0\nend\n", "2:1 dropped_words"},
        {"of a directive that an edit made", "", "% title x\n", "",
         [](AIPData& data) {
             data.directives.push_back({"title", "x", true, {}});
         }},
    });
}

}  // namespace
}  // namespace velk::test
