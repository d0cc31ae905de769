// Which words of '!' lines an edited list of tokens goes on with, and how new ones are spelt.
#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPData;
using input::amesp::AIPEditor;
using Words = std::vector<std::string>;

struct TokenEdits {
    Words removed;
    Words added;
};

Edit edits(TokenEdits tokens) {
    return [=](AIPEditor& editor) {
        for (const std::string& token : tokens.removed) {
            editor.remove_method_token(token);
        }
        for (const std::string& token : tokens.added) {
            editor.add_method_token(token);
        }
    };
}

Edit set(Words tokens) {
    return [=](AIPEditor& editor) { editor.set_method_tokens(tokens); };
}

template <class Change>
Edit change(Change change_data) {
    return [=](AIPEditor& editor) {
        AIPData data = editor.data();
        change_data(data);
        editor.set_data(data);
    };
}

std::string repeated(std::size_t count, const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(MethodTokens, AreFoundByTheirPlace) {
    expect_edited({
        {"on two lines", "! hf opt\n# note\n! opt hf\n", edits({{"hf"}, {}}), "! opt\n# note\n! opt\n"},
        {"in two spellings", "! hf OPT opt hf\n", edits({{"hf"}, {}}), "! OPT opt\n"},
        {"one added like one that is there", "! hf B3-LYP\n", edits({{"hf"}, {"b3lyp"}}), "! B3-LYP b3lyp\n"},
        {"and not taken for one removed before it", "!  HF  opt\n", edits({{"hf"}, {"hf"}}), "!  opt hf\n"},
        {"nor for another one after it", "! opt\n!  hf\n", edits({{"hf"}, {"freq"}}), "! opt freq\n"},
        {"words that begin with the marker", "! ! hf  !  hf !\n", edits({{"hf"}, {}}), "! !  ! !\n"},
        {"one inserted", "!  opt  opt\n", change([](AIPData& data) {
             data.method_tokens.insert(data.method_tokens.begin() + 1, {"opt", "opt", "", true, {}});
         }),
         "!  opt opt  opt\n"},
        {"one that became another", "!  opt  Opt  opt\n",
         change([](AIPData& data) { data.method_tokens[1].canonical = "hf"; }), "!  opt  hf  opt\n"},
    });
}

TEST(MethodTokens, AreTheSameWhereTheyAreRemovedAndAddedAgainAfterAllOthers) {
    expect_edited({
        {"one", "! opt  HF\n", edits({{"hf"}, {"hf"}}), "! opt  HF\n"},
        {"one of two", "! opt  HF  hf\n", edits({{"hf"}, {"hf"}}), "! opt  HF\n"},
        {"and others", "! opt  HF  sto-3g  Freq\n", edits({{"hf", "freq"}, {"freq", "hf"}}),
         "! opt  sto-3g  Freq hf\n"},
        {"between new ones", "! opt  HF  sto-3g\n", edits({{"hf", "sto-3g"}, {"x", "sto-3g", "hf"}}),
         "! opt x  sto-3g hf\n"},
    });
}

TEST(MethodTokens, StayAsFarAsTheyAreTheSameInAListSetAnew) {
    expect_edited({
        {"repeated ones", "!  hf   OPT    opt     hf\n", set({"opt", "opt"}), "!   OPT    opt\n"},
        {"with another before them", "!  hf   OPT    opt     hf\n", set({"b3lyp", "opt", "opt"}),
         "!  b3lyp   OPT    opt\n"},
        {"the longer run of them", "!  hf   opt    opt\n", set({"opt", "opt", "hf"}), "!   opt    opt hf\n"},
        {"of two that changed places the first", "!  hf   OPT\n", set({"opt", "hf"}), "!   OPT hf\n"},
        {"those at the end", "!  freq\n# c\n!  HF\n", set({"opt", "hf", "hf"}), "!  opt hf\n# c\n!  HF\n"},
        {"those at the end, one fewer", "!  HF\n! freq Freq\n# c\n! FREQ\n", set({"hf", "opt", "freq"}),
         "!  HF\n! opt\n# c\n! FREQ\n"},
        {"the others in their places", "!  hf   opt    sto-3g     opt\n", set({"b3lyp", "opt", "6-31g", "opt", "freq"}),
         "!  b3lyp   opt    6-31g     opt freq\n"},
    });
}

TEST(MethodTokens, AreFoundInLongLists) {
    const Words many(70, "hf");
    Words with_one = Words(67, "x");
    with_one.push_back("opt");
    with_one.insert(with_one.end(), 66, "y");
    const std::string old = "!  opt" + repeated(66, "  hf");
    expect_edited({
        {"again", old + "\n", edits({{"hf"}, many}), old + repeated(4, " hf") + "\n"},
        {"not by position", old + "\n", edits({{"hf"}, Words(70, "freq")}), "!  opt" + repeated(70, " freq") + "\n"},
        {"by position when set anew", old + "\n", set(Words(70, "freq")),
         "!" + repeated(67, "  freq") + repeated(3, " freq") + "\n"},
        {"by their name when set anew", "!" + repeated(66, "  hf") + "  OPT" + repeated(66, "  freq") + "\n",
         set(with_one), "!" + repeated(66, "  x") + " x  OPT" + repeated(66, "  y") + "\n"},
        {"among others", old + "  OPT" + repeated(66, "  freq") + "  sto-3g  x\n",
         edits({{"hf", "freq", "x"}, Words(66, "x")}), "!  opt  OPT  sto-3g  x" + repeated(65, " x") + "\n"},
    });
}

TEST(MethodTokens, KeepTheCapitalsThatWereTypedInALineThatHasSome) {
    expect_edited({
        {"in place of another", "! B3LYP def2-SVP\n", set({"b3lyp", "def2-TZVP"}), "! B3LYP def2-TZVP\n"},
        {"in place of the only one with capitals", "! hf STO-3G\n", set({"hf", "Opt"}), "! hf Opt\n"},
        {"known", "! HF\n", edits({{}, {"Opt"}}), "! HF Opt\n"},
        {"unknown", "! HF\n", edits({{}, {"XyZZY"}}), "! HF XyZZY\n"},
        {"in front", "! HF\n", set({"Opt", "hf"}), "! Opt HF\n"},
        {"where the one with capitals goes", "! HF opt\n", edits({{"hf"}, {"Freq"}}), "! opt Freq\n"},
        {"first letter of the alphabet", "! A\n", edits({{}, {"OPT"}}), "! A OPT\n"},
        {"last letter of the alphabet", "! Z\n", edits({{}, {"OPT"}}), "! Z OPT\n"},
    });
}

TEST(MethodTokens, AreCanonicalElsewhere) {
    expect_edited({
        {"no capitals in the line", "! hf\n", edits({{}, {"Opt"}}), "! hf opt\n"},
        {"none in the word's own line", "! HF\n! sto-3g\n", edits({{}, {"Opt"}}), "! HF\n! sto-3g opt\n"},
        {"none typed", "! HF\n", edits({{}, {"opt"}}), "! HF opt\n"},
        {"an alias", "! HF\n", edits({{}, {"B3-LYP"}}), "! HF b3lyp\n"},
        {"a new line", "% title X\n", edits({{}, {"HF"}}), "% title X\n! hf\n"},
        {"typed with white space", "! HF\n", change([](AIPData& data) {
             data.method_tokens.push_back({" Opt", "opt", "", true, {}});
         }),
         "! HF opt\n"},
    });
}

}  // namespace
}  // namespace velk::test
