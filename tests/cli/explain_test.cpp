// amesp-inp explain: the examples of every code do what they are said to do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;

std::vector<std::string> listed_codes() {
    std::istringstream lines(run_program({"explain"}).out);
    std::vector<std::string> codes;
    for (std::string line; std::getline(lines, line);) {
        codes.push_back(line.substr(0, line.find(' ')));
    }
    return codes;
}

// The indented block after a heading.
std::string block(const std::string& text, const std::string& heading) {
    const std::size_t begin = text.find("\n" + heading + "\n\n");
    std::string result;
    if (begin != std::string::npos) {
        std::istringstream lines(text.substr(begin + heading.size() + 3));
        for (std::string line; std::getline(lines, line) && line.starts_with("    ");) {
            result += line.substr(4) + "\n";
        }
    }
    return result;
}

TEST(Explain, ListsEveryCodeOnce) {
    EXPECT_THAT(
        listed_codes(),
        testing::ElementsAre(
            "amesp-inp.added_end", "amesp-inp.bad_header", "amesp-inp.dropped_marker", "amesp-inp.dropped_words",
            "amesp-inp.equals_in_directive", "amesp-inp.extra_words", "amesp-inp.invisible_character",
            "amesp-inp.lost_atom", "amesp-inp.lost_line", "amesp-inp.missing_end", "amesp-inp.misspelt_end",
            "amesp-inp.moved_blank_lines", "amesp-inp.moved_line", "amesp-inp.one_line_section",
            "amesp-inp.other_format", "amesp-inp.pasted_xyz", "amesp-inp.reads_differently",
            "amesp-inp.remark_in_value", "amesp-inp.repeated_name", "amesp-inp.rounded", "amesp.dropped_words",
            "amesp.duplicate_section", "amesp.empty_directive", "amesp.empty_geometry", "amesp.empty_method_line",
            "amesp.empty_section_header", "amesp.invalid_multiplicity", "amesp.invalid_section_entry",
            "amesp.invalid_value", "amesp.invalid_xyz_header", "amesp.invalid_xyz_record", "amesp.kept_unit",
            "amesp.loose_line", "amesp.missing_geometry", "amesp.missing_method_line", "amesp.missing_required_entry",
            "amesp.missing_required_section", "amesp.multiple_geometry_sections", "amesp.multiple_method_lines",
            "amesp.not_expressible", "amesp.not_of_this_text", "amesp.remark_in_method_line", "amesp.unknown_directive",
            "amesp.unknown_entry", "amesp.unknown_method_token", "amesp.unknown_section", "amesp.unterminated_section",
            "amesp.value_above_maximum", "amesp.value_below_minimum"));
}

TEST(Explain, GivesABadExampleThatHasTheFindingAndAGoodOneWithoutAny) {
    const TempDir dir;
    for (const std::string& code : listed_codes()) {
        if (code == "amesp.not_expressible" || code == "amesp.not_of_this_text" || code == "amesp.dropped_words" ||
            code == "amesp.kept_unit" || code == "amesp.remark_in_method_line") {
            continue;  // no input has them, but edits, see below
        }
        const ProgramRun explained = run_program({"explain", code});
        EXPECT_EQ(explained.status, 0);
        const std::string severity = explained.out.substr(0, explained.out.find('\n'));
        const std::string schema = block(explained.out, "With the schema:");
        write_file(dir / "schema.yaml",
                   schema.empty() ? read_file(VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml") : schema);
        // The program's own findings come from checking, or else from formatting, on standard error.
        bool of_formatting = false;
        const auto check = [&](const char* heading) {
            const std::string text = block(explained.out, heading);
            EXPECT_NE(text, "") << code << heading;
            const std::string schema_path = dir / "schema.yaml";
            ProgramRun run =
                of_formatting
                    ? run_program({"fmt", "--schema", schema_path, "-"}, {.input = text})
                    : run_program({"check", "--fail-on", "warning", "--schema", schema_path, "-"}, {.input = text});
            if (of_formatting) {
                run.out = run.err;
            }
            return run;
        };
        ProgramRun bad = check("Bad:");
        if (code.starts_with("amesp-inp.") && bad.out.find("[" + code + "]") == std::string::npos) {
            of_formatting = true;
            bad = check("Bad:");
        }
        const std::size_t end = bad.out.find("[" + code + "]");
        ASSERT_NE(end, std::string::npos) << code << bad.out;
        const std::string finding = bad.out.substr(0, end).substr(bad.out.rfind('\n', end) + 1);
        const bool is_error = finding.find(": error: ") != std::string::npos;
        if (finding.find(": note: from this: ") == std::string::npos) {
            EXPECT_EQ(severity, code + (is_error ? " (error)" : " (warning)"));
        }
        const ProgramRun fixed = check("Good:");
        EXPECT_EQ(fixed.status, 0) << code << fixed.out;
        EXPECT_EQ(fixed.out, "") << code;
        EXPECT_THAT(explained.out, HasSubstr("\nTo fix it: "));
    }
}

TEST(Explain, GivesABadEditThatIsRefusedAndAGoodOneThatIsNot) {
    const TempDir dir;
    write_file(dir / "he.inp", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n");
    const std::string text = run_program({"explain", "amesp.not_expressible"}).out;
    const auto run = [&](const std::string& command) {
        EXPECT_THAT(command, testing::StartsWith("amesp-inp set he.inp "));
        const std::string program = AMESP_INP_PROGRAM;
        const std::string shell =
            "cd '" + dir.path() +
            "' && VELK_AMESP_INP_SCHEMA_YAML='" VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml' PATH='" +
            program.substr(0, program.rfind('/')) + "' " + command.substr(0, command.size() - 1) + " >out 2>err";
        return std::system(shell.c_str());
    };
    EXPECT_NE(run(block(text, "Bad:")), 0);
    EXPECT_THAT(read_file(dir / "err"), HasSubstr(": error: "));
    EXPECT_THAT(read_file(dir / "err"), HasSubstr("[amesp.not_expressible]"));
    EXPECT_EQ(read_file(dir / "out"), "");
    EXPECT_EQ(run(block(text, "Good:")), 0);
    EXPECT_THAT(read_file(dir / "out"), testing::StartsWith("! hf sto-3g two words\n"));
}

TEST(Explain, GivesATextThatRefusesANewTokenAndOneThatTakesIt) {
    const std::string text = run_program({"explain", "amesp.remark_in_method_line"}).out;
    const auto add_token = [&](const std::string& input) {
        const char* const schema = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";
        return run_program({"set", "--schema", schema, "--force", "--add-token", "opt", "-"}, {.input = input});
    };
    const ProgramRun bad = add_token(block(text, "Bad:"));
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, "");
    EXPECT_THAT(bad.err, testing::StartsWith("<stdin>:1:14: error: Method-line token 'opt' was not added: "));
    EXPECT_THAT(bad.err, HasSubstr("[amesp.remark_in_method_line]"));
    const ProgramRun good = add_token(block(text, "Good:"));
    EXPECT_EQ(good.status, 0);
    EXPECT_THAT(good.out, testing::StartsWith("# a first try\n! hf sto-3g opt\n"));
}

TEST(Explain, TakesACodeWithoutItsFirstWord) {
    EXPECT_EQ(run_program({"explain", "loose_line"}).out, run_program({"explain", "amesp.loose_line"}).out);
}

TEST(Explain, RefusesAnUnknownCode) {
    const ProgramRun run = run_program({"explain", "amesp.nonsense"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "amesp-inp: unknown code 'amesp.nonsense'; 'amesp-inp explain' lists all codes\n");
}

// With VELK_UPDATE_PAGES set the page is written anew.
TEST(Explain, SaysWhatThePageOfCodesSays) {
    const std::string path = VELK_SOURCE_DIRECTORY "/docs/codes.md";
    const std::string page = read_file(path);
    std::string made = page.substr(0, page.find("\n## "));
    for (const std::string& code : listed_codes()) {
        const std::string text = run_program({"explain", code}).out;
        const std::size_t head = text.find('\n');
        const std::size_t bracket = text.find('(');
        made +=
            "\n## " + code + "\n\nSeverity: " + text.substr(bracket + 1, head - bracket - 2) + "." + text.substr(head);
    }
    if (std::getenv("VELK_UPDATE_PAGES") != nullptr) {
        write_file(path, made);
    }
    EXPECT_EQ(page, made);
}

}  // namespace
}  // namespace velk::test
