// What names, arguments and files hold does not act on a terminal, and stays as it is on its way to a file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "support/run_program.hpp"
#include "support/terminal.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

constexpr auto starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";

// Control characters of one byte and of two, bytes that are no UTF-8 (one of them a control character to a terminal
// that expects none), longer spellings than are needed, a code that is none, all that turns the direction, half a
// character.
const std::string line_of_evil =
    "\u00fc\x01\x07\x1b[31m\r\x1f\x7f\u0080\u009b"
    "2J\u009f\x9b"
    "2J\xff\xc0\x9b\xc1\x9b\xe0\x82\x9b\xf0\x80\x82\x9b\xed\xa0\x80\xf4\x90\x80\x80\xf5\x80\x80\x80"
    "\u061c\u200e\u200f\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069\xe2\x80";
const std::string evil = "a\n\t" + line_of_evil;

const std::string content = "# " + line_of_evil + "\n% " + line_of_evil + " 1\n% maxcore " + line_of_evil + "\n! hf " +
                            line_of_evil + "\n" + line_of_evil + "\n>scf " + line_of_evil + "\n  " + line_of_evil +
                            " = 1\n  guess = " + line_of_evil + "\n  maxcyc = 1\n  maxcyc = 2\nend\n>" + line_of_evil +
                            "\nend\n>xyz 0 1 " + line_of_evil + "\n  He 0 0 0 " + line_of_evil + "\n  " + line_of_evil +
                            " 0 0 0\n  H 0 0 " + line_of_evil + "\n";

std::string without(std::string text, const std::string& part) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
    return text;
}

// Files of evil names or contents.
struct Place {
    TempDir dir;
    std::map<std::string, std::string> names = {{"{dir}", dir.path()},
                                                {"{file}", dir / (evil + ".inp")},
                                                {"{mol}", dir / "mol.xyz"},
                                                {"{evil_mol}", dir / "evil.xyz"},
                                                {"{bad_mol}", dir / (evil + ".xyz")},
                                                {"{bad_schema}", dir / (evil + ".yaml")}};

    Place() {
        write_file(names["{file}"], content);
        write_file(names["{mol}"], "1\n\nHe 0 0 0\n");
        write_file(names["{evil_mol}"], "1\n" + line_of_evil + "\nHe" + without(line_of_evil, "\r") + " 0 0 0\n");
        write_file(names["{bad_mol}"], line_of_evil);
        write_file(names["{bad_schema}"], "sections: [" + line_of_evil);
    }

    std::vector<std::string> named(std::vector<std::string> arguments) const {
        for (std::string& argument : arguments) {
            const auto name = names.find(argument);
            argument = name == names.end() ? argument : name->second;
        }
        return arguments;
    }
};

std::size_t line_count(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// The first byte that is neither printable nor one of the layout, nor part of the characters that the tests know.
std::string first_that_acts(const std::string& text) {
    const std::string rest = without(without(text, "\u00fc"), "\ufffd");
    const auto found =
        std::find_if(rest.begin(), rest.end(), [](char c) { return (c < ' ' || c > '~') && c != '\n' && c != '\t'; });
    return {found, found == rest.end() ? found : found + 1};
}

using Arguments = std::vector<std::string>;

ProgramRun run_on_terminal(const Arguments& arguments, RunOptions options = {}) {
    Terminal terminal;
    options.out_path = terminal.path();
    options.environment.push_back(std::string("VELK_AMESP_INP_SCHEMA_YAML=") + starter);
    ProgramRun run = run_program(arguments, options);
    run.out = terminal.text();
    return run;
}

struct Call {
    const char* name;
    int status;
    Arguments arguments;  // a word between braces is a name of the place
};

class OnATerminal : public testing::TestWithParam<Call> {};

TEST_P(OnATerminal, NothingActs) {
    const Place place;
    const ProgramRun run =
        run_on_terminal(place.named(GetParam().arguments), {.input = content, .directory = place.dir.path()});
    EXPECT_EQ(run.status, GetParam().status) << run.err;
    EXPECT_NE(run.out + run.err, "");
    EXPECT_EQ(first_that_acts(run.out), "") << run.out;
    EXPECT_EQ(first_that_acts(run.err), "") << run.err;
}

std::string name_of(const testing::TestParamInfo<Call>& call) {
    return call.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, OnATerminal,
    testing::ValuesIn(std::vector<Call>{
        Call{"Check", 1, {"check", "--color", "never", "{file}"}},
        Call{"CheckJson", 1, {"check", "--format", "json", "{file}"}},
        Call{"CheckDiff", 1, {"check", "--color", "never", "--fix=all", "--diff", "{file}"}},
        Call{"CheckFix", 2, {"check", "--color", "never", "--fix", "{file}", evil}},
        Call{"CheckMany", 2, {"check", "--color", "never", "{dir}", evil}},
        Call{"CheckStdin", 1, {"check", "--color", "never", "--stdin-filename", evil, "-"}},
        Call{"CheckStdinJson", 1, {"check", "--format", "json", "--stdin-filename", evil, "-"}},
        Call{"Explain", 2, {"explain", evil}},
        Call{"Show", 0, {"show", "{file}"}},
        Call{"ShowMissing", 2, {"show", evil}},
        Call{"Fmt", 1, {"fmt", "{file}"}},
        Call{"FmtForce", 0, {"fmt", "--force", "{file}"}},
        Call{"FmtCheck", 1, {"fmt", "--check", "{file}"}},
        Call{"FmtDiff", 0, {"fmt", "--force", "--diff", "{file}"}},
        Call{"FmtCheckDiff", 1, {"fmt", "--force", "--check", "--diff", "{file}"}},
        Call{"FmtMissing", 2, {"fmt", evil}},
        Call{"Get", 0, {"get", "{file}", "%maxcore", "!", "scf.guess", ">xyz.atoms"}},
        Call{"GetNames", 0, {"get", "%maxcore", "!", "--files", "{file}"}},
        Call{"GetJson", 0, {"get", "{file}", "%maxcore", "--format", "json"}},
        Call{"GetMissing", 1, {"get", "{file}", "%" + evil, ">" + evil + ".atoms", evil + "." + evil}},
        Call{"GetNoKey", 2, {"get", "{file}", evil}},
        Call{"GetNoFile", 2, {"get", evil, "!"}},
        Call{"Set", 0, {"set", "{file}", "--force", "--directive", "maxcore=" + line_of_evil}},
        Call{"SetDiff", 0, {"set", "{file}", "--force", "--dry-run", "--directive", "maxcore=1"}},
        Call{"SetEvil", 1, {"set", "{file}", "--directive", evil + "=" + evil, "--entry", evil + "." + evil + "=1"}},
        Call{"SetNoEdit", 2, {"set", "{file}", "--directive", evil}},
        Call{"SetToken", 1, {"set", "{file}", "--add-token", evil}},
        Call{"SetOutput", 2, {"set", "{file}", "--force", "--directive", "maxcore=1", "-o", evil + "/b"}},
        Call{"SetGeometry", 2, {"set", "{file}", "--geometry", "{bad_mol}"}},
        Call{"Geom", 0, {"geom", "{file}", "--to-xyz", "-"}},
        Call{"GeomOutput", 2, {"geom", "{file}", "--to-xyz", evil + "/b"}},
        Call{"GeomFrom", 0, {"geom", "{file}", "--force", "--from-xyz", "{evil_mol}", "--charge", "0"}},
        Call{"GeomBad", 2, {"geom", "{file}", "--from-xyz", "{bad_mol}"}},
        Call{"GeomNone", 2, {"geom", "{file}", "--from-xyz", evil}},
        Call{"New",
             0,
             {"new", "--geometry", "{evil_mol}", "--charge", "0", "--multiplicity", "1", "--method", "hf sto-3g",
              "--force"}},
        Call{"NewMethod", 0, {"new", "--geometry", "{mol}", "--charge", "0", "--multiplicity", "1", "--method", evil}},
        Call{"NewOutput",
             2,
             {"new", "--geometry", "{mol}", "--charge", "0", "--multiplicity", "1", "--method", "hf sto-3g", "-o",
              evil + "/b"}},
        Call{"Schema", 2, {"check", "--schema", "{bad_schema}", "{file}"}},
        Call{"NoSchema", 2, {"check", "--schema", evil, "{file}"}}}),
    name_of);

INSTANTIATE_TEST_SUITE_P(
    Usage, OnATerminal,
    testing::ValuesIn(std::vector<Call>{
        Call{"Verb", 2, {evil}}, Call{"ProgramOption", 2, {"--" + evil}}, Call{"Option", 2, {"check", "--" + evil}},
        Call{"ShortOption", 2, {"fmt", "-" + evil}}, Call{"Choice", 2, {"check", "{file}", "--format", evil}},
        Call{"Number", 2, {"check", "{file}", "-j", evil}}, Call{"Flag", 2, {"check", "--fix=" + evil, "{file}"}},
        Call{"Charge", 2, {"set", "{file}", "--geometry", "{mol}", "--charge", evil}},
        Call{"Surplus", 2, {"show", "{file}", evil, evil}}, Call{"Excluded", 2, {"set", "{file}", "-i", "-o", evil}}}),
    name_of);

TEST(Terminal, TheProgramsOwnColoursStay) {
    const std::string out = run_on_terminal({"check", "-"}, {.input = "\x1b[7m\n"}).out;
    EXPECT_THAT(out, HasSubstr("\x1b[1;35mwarning: \x1b[0m"));
    EXPECT_THAT(out, testing::Not(HasSubstr("\x1b[7m")));
}

TEST(Terminal, ALineOfCsvIsOneLine) {
    const Place place;
    const std::string out =
        run_on_terminal(place.named({"get", "--format", "csv", "%maxcore", "--files", "{file}"})).out;
    EXPECT_EQ(line_count(out), 2U) << out;
    EXPECT_THAT(out, testing::StartsWith("file,key,value\r\n"));
    EXPECT_EQ(first_that_acts(without(out, "\r\n")), "") << out;
}

TEST(Terminal, TextsKeepTheirLinesAndTabs) {
    // The neighbours of what acts, and the first and last of each length.
    const std::string text =
        "# \tb ~\u00a0\u061b\u061d\u07ff\u0800\u200d\u2010\u2029\u202f\u2065\u206a\ud7ff\ue000\uffff"
        "\U00010000\U0010ffff\n\n! hf\n";
    EXPECT_EQ(run_on_terminal({"set", "-", "--add-token", "opt"}, {.input = text}).out,
              text.substr(0, text.size() - 1) + " opt\n");
}

TEST(Terminal, ACharacterThatActsIsOneQuestionMarkAndABrokenOneOneForEachByte) {
    const std::string text =
        "# a\x1b"
        "b\u009b"
        "c\u202e"
        "d\xff"
        "e\xe2\x80"
        "f\xed\xa0\x80g\xf4\x90\x80\x80h\xe0\x82\xa1i\xf0\x80\x82\xa1j\r\n! hf\n";
    EXPECT_EQ(run_on_terminal({"set", "-", "--add-token", "opt"}, {.input = text}).out,
              "# a?b?c?d?e??f???g????h???i????j?\n! hf opt\n");
}

TEST(NoTerminal, TextsAndValuesKeepEveryByte) {
    const std::string schema = std::string("VELK_AMESP_INP_SCHEMA_YAML=") + starter;
    const std::string text = "# " + line_of_evil + "\n% maxcore " + line_of_evil + "\n! hf\n";
    const RunOptions options = {.input = text, .environment = {schema}};
    EXPECT_EQ(run_program({"get", "-", "%maxcore"}, options).out, line_of_evil + "\n");
    EXPECT_EQ(run_program({"set", "-", "--force", "--add-token", "opt"}, options).out,
              text.substr(0, text.size() - 1) + " opt\n");
    EXPECT_THAT(run_program({"set", "-", "--force", "--add-token", "opt", "--dry-run"}, options).out,
                HasSubstr("\n " + text.substr(0, text.find('\n') + 1)));
}

TEST(Complaint, HasItsOwnLinesWhateverTheName) {
    const std::string name = "a'\namesp-inp:\tall is well\n'";
    const RunOptions options = {.environment = {std::string("VELK_AMESP_INP_SCHEMA_YAML=") + starter}};
    for (const Arguments& arguments :
         {Arguments{"fmt", name}, Arguments{"get", name, "!"}, Arguments{"explain", name}}) {
        const ProgramRun run = run_program(arguments, options);
        EXPECT_THAT(run.err, HasSubstr("a'?amesp-inp:?all is well?'"));
        EXPECT_EQ(line_count(run.err), 1U) << run.err;
    }
    const ProgramRun usage = run_program({"check", "-", "--" + name});
    EXPECT_THAT(usage.err, HasSubstr("a'?amesp-inp:?all is well?'"));
    EXPECT_EQ(line_count(usage.err), 2U) << usage.err;
    const ProgramRun schema = run_program({"show", "-"}, {.environment = {"VELK_AMESP_INP_SCHEMA_YAML=/" + name}});
    EXPECT_THAT(schema.err, HasSubstr("'/a'?amesp-inp:?all is well?'"));
    EXPECT_EQ(line_count(schema.err), 1U) << schema.err;
}

TEST(Complaint, IsWholeWhateverItsLength) {
    for (const std::size_t size : {900U, 1000U, 1024U, 2048U, 5000U}) {
        const std::string code(size, 'x');
        EXPECT_EQ(run_program({"explain", code}).err,
                  "amesp-inp: unknown code 'amesp." + code + "'; 'amesp-inp explain' lists all codes\n");
    }
}

TEST(Excerpt, MarksItsPlaceAfterBytesThatAreNoText) {
    const std::string line = "! \x9b\xe2\x80\u202e odd";
    const std::string out = run_program({"check", "--schema", starter, "-"}, {.input = line + "\n"}).out;
    EXPECT_THAT(out, HasSubstr("    1 | ! ???? odd\n      |   ^~~~\n"));
    EXPECT_THAT(out, HasSubstr("    1 | ! ???? odd\n      |        ^~~\n"));
}

TEST(Excerpt, IsCutBetweenCharacters) {
    for (int shift = 0; shift < 4; ++shift) {
        std::string line = "! " + std::string(static_cast<std::size_t>(shift), 'x');
        for (int i = 0; i < 100; ++i) {
            line += "\U0001f600";
        }
        std::string out =
            run_program({"check", "--schema", starter, "-"}, {.input = line + " odd " + line.substr(2) + "\n"}).out;
        EXPECT_THAT(out, HasSubstr("\U0001f600...\n"));
        EXPECT_THAT(out, HasSubstr(" | ...\U0001f600"));
        EXPECT_THAT(out, testing::Not(HasSubstr("?\U0001f600")));
        EXPECT_THAT(out, testing::Not(HasSubstr("\U0001f600?")));
    }
}

}  // namespace
}  // namespace velk::test
