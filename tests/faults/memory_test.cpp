// The program with each allocation of each verb failing, alone and with all that follow: it says so in a line and ends
// with status 2, or does what it does otherwise. No file is half written, and none is left behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <velk/core/text_view.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

constexpr auto schema = R"(
directives: {maxcore: {value_type: integer, min: 1}}
method_tokens: {hf: {category: method, aliases: [hartree-fock]}, sto-3g: {category: basis}}
sections:
  scf: {parse_mode: key_value, entries: {maxcyc: {value_type: integer}, guess: {allowed: [core, mix]}}}
  xyz: {parse_mode: cartesian_coordinates}
)";
constexpr auto input = "% maxcore 5\n! HF  sto-3g x\n>scf\n  maxcyc = 5\nend\n>xyz 0 1\nHe 0 0 0\n";
constexpr auto molecule = "1\ncharge=0 multiplicity=1\nHe 0 0 0.5\n";

struct Call {
    const char* name;
    std::vector<std::string> words;
    bool default_schema = false;
    const char* until = "1000000";
};

void PrintTo(const Call& call, std::ostream* out) {
    *out << call.name;
}

// What a call of each kind allocates: reading the command line, finding files and the schema, the work, its output.
const Call calls[] = {
    {"CheckText", {"check", "-q", "--color", "always", "f.inp"}},
    {"CheckJson", {"check", "-q", "--format", "json", "--files-from", "list"}},
    {"CheckDirectory", {"check", "-q", "-j", "1", "--exclude", "m*", "."}},
    {"CheckFix", {"check", "-q", "--fix=all", "f.inp"}},
    {"CheckFixDiff", {"check", "-q", "--fix", "--diff", "f.inp"}},
    {"CheckNoSuchFile", {"check", "-q", "no-such-file-of-any-name.inp"}},
    {"Explain", {"explain", "amesp.unterminated_section"}},
    {"ExplainAll", {"explain"}},
    {"Show", {"show", "f.inp"}},
    {"ShowMany", {"show", "f.inp", "f.inp", "list"}},
    {"FmtInPlace", {"fmt", "--force", "-i", "f.inp"}},
    {"FmtCheck", {"fmt", "--check", "--diff", "f.inp"}},
    {"Get", {"get", "f.inp", "%maxcore", ">scf.maxcyc", ">xyz.atoms"}},
    {"GetCsv", {"get", "!basis", "--files", ".", "--format", "csv"}},
    {"GetJson", {"get", "f.inp", "!", "--format", "json"}},
    {"GetDefaultSchema", {"get", "f.inp", "maxcore"}, true, "800"},
    {"SetInPlace", {"set", "--force", "-i", "f.inp", "--entry", "scf.maxcyc=9", "--add-token", "hf"}},
    {"SetOutput", {"set", "--force", "-o", "new.inp", "f.inp", "--canonical", "--directive", "maxcore=7"}},
    {"SetDiff", {"set", "--diff", "f.inp", "--geometry", "m.xyz", "--frame", "last"}},
    {"GeomTo", {"geom", "f.inp", "--to-xyz", "new.xyz"}},
    {"GeomFrom", {"geom", "--force", "-i", "f.inp", "--from-xyz", "m.xyz"}},
    {"New", {"new", "--geometry", "m.xyz", "--method", "hf sto-3g", "--directive", "maxcore=4", "-o", "new.inp"}},
    {"Help", {"help", "get"}},
    {"AllHelp", {"--help"}},
    {"NoVerb", {"chek"}},
    {"NoOption", {"set", "--metod", "hf"}},
};

// One allocation that failed, as forking_allocations.cpp writes it down.
struct Trial {
    std::string number;
    std::string how;
    int status;
    std::size_t printed;
    std::size_t complained;
    std::string out;
    std::string err;
    std::string files;
};

std::vector<Trial> read_trials(std::string_view log) {
    std::vector<Trial> trials;
    const auto take = [&] {
        const std::string_view field = log.substr(0, log.find('\0'));
        log.remove_prefix(field.size() + 1);
        return std::string(field);
    };
    while (!log.empty()) {
        trials.push_back(
            {take(), take(), std::stoi(take()), std::stoul(take()), std::stoul(take()), take(), take(), take()});
    }
    return trials;
}

std::string files_of(const TempDir& dir) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(dir.path())) {
        files[entry.path().filename()] = read_file(entry.path());
    }
    std::string text;
    for (const auto& [name, content] : files) {
        text += name + ":" + content + ";";
    }
    return text;
}

bool is_one_line(std::string_view text) {
    return text.ends_with('\n') && text.find('\n') == text.size() - 1;
}

class Memory : public testing::TestWithParam<Call> {
protected:
    Memory() {
        write_file(schema_dir_ / "schema.yaml", schema);
        write_file(dir_ / "f.inp", input);
        write_file(dir_ / "list", "f.inp\n");
        write_file(dir_ / "m.xyz", molecule);
        before_ = files_of(dir_);
    }

    ProgramRun run(const std::vector<std::string>& variables) const {
        std::vector<std::string> words = GetParam().words;
        if (words.size() > 1 && words[0] != "help" && words[0] != "explain" && !GetParam().default_schema) {
            words.insert(words.begin() + 1, {"--schema", schema_dir_ / "schema.yaml"});
        }
        return run_program(words, {.directory = dir_.path(), .environment = variables});
    }

    // Opening the schema takes memory, too, and the library for YAML knows one answer for all that fails there.
    bool says_why(const std::string& message) const {
        return message.starts_with("amesp-inp: ") && (message.find("out of memory") != std::string::npos ||
                                                      message.find(": bad file: ") != std::string::npos);
    }

    const TempDir dir_;
    const TempDir schema_dir_;
    std::string before_;
};

TEST_P(Memory, ExhaustedIsALineAndStatusTwo) {
    const TempDir logs;
    const ProgramRun usual =
        run({"LD_PRELOAD=" FORKING_ALLOCATIONS_LIBRARY, "VELK_FAULT_LOG=" + (logs / "log"),
             "VELK_FAULT_BELOW=" + dir_.path(), std::string("VELK_FAULT_UNTIL=") + GetParam().until});
    ASSERT_GE(usual.status, 0) << usual.err;
    const std::string after = files_of(dir_);
    const std::vector<Trial> trials = read_trials(read_file(logs / "log"));
    if (trials.empty()) {
        GTEST_SKIP() << "a sanitizer's own allocations come first";
    }
    std::size_t troubles = 0;
    for (const Trial& trial : trials) {
        const std::string where = "allocation " + trial.number + " failed, " + trial.how + ": " + trial.err;
        EXPECT_TRUE(trial.files == before_ || trial.files == after) << where << trial.files;
        if (trial.status == usual.status && trial.err == usual.err.substr(trial.complained)) {
            EXPECT_EQ(trial.out, usual.out.substr(trial.printed)) << where;  // what could do without
            EXPECT_EQ(trial.files, after) << where;
        } else {
            EXPECT_EQ(trial.status, 2) << where;
            EXPECT_TRUE(is_one_line(trial.err) && says_why(trial.err)) << where;
            ++troubles;
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(troubles, trials.size() - trials.size() / 10);
    std::printf("%zu trials\n", trials.size());
}

INSTANTIATE_TEST_SUITE_P(Program, Memory, testing::ValuesIn(calls), [](const auto& call) { return call.param.name; });

}  // namespace
}  // namespace velk::test
