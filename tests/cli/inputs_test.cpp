// Which files a verb works on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

const std::string starter = VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml";

class Inputs : public testing::Test {
protected:
    ProgramRun check(std::vector<std::string> arguments, const std::string& input = "") const {
        arguments.insert(arguments.begin(), {"check", "--schema", starter, "--fail-on", "never"});
        return run_program(arguments, {.input = input, .directory = dir_.path()});
    }

    // The names of the files that were checked, each with a blank after it.
    std::string checked(std::vector<std::string> arguments, const std::string& input = "") const {
        arguments.insert(arguments.end(), {"--format", "json"});
        const ProgramRun run = check(arguments, input);
        EXPECT_EQ(run.status, 0) << run.err;
        std::string names;
        if (run.status == 0) {
            const auto report = nlohmann::json::parse(run.out);
            for (const auto& file : report["files"]) {
                names += file["file"].get<std::string>() + " ";
            }
        }
        return names;
    }

    void make(const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            std::filesystem::create_directories(std::filesystem::path(dir_ / name).parent_path());
            write_file(dir_ / name, "");
        }
    }

    const TempDir dir_;
};

TEST_F(Inputs, OfADirectoryAreMatchedWithoutRegardToCase) {
    make({"d/A.INP", "d/b.Inp", "d/c.AIP", "d/d.txt"});
    EXPECT_EQ(checked({"d"}), "d/A.INP d/b.Inp d/c.AIP ");
    EXPECT_EQ(checked({"d", "--pattern", "*.TXT"}), "d/d.txt ");
}

TEST_F(Inputs, OfHiddenFoldersAreTakenOnlyWhereTheseAreNamed) {
    make({"d/.git/a.inp", "d/sub/.old/b.inp", "d/sub/c.inp", "d/.d.inp"});
    EXPECT_EQ(checked({"d"}), "d/.d.inp d/sub/c.inp ");
    EXPECT_EQ(checked({"d/.git"}), "d/.git/a.inp ");
    EXPECT_EQ(checked({"."}), "./d/.d.inp ./d/sub/c.inp ");
}

TEST_F(Inputs, AreExcludedByNameAndByPathBelowTheDirectory) {
    make({"d/a.inp", "d/sub/a.inp", "d/sub/old/b.inp", "d/Old/c.inp"});
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"--exclude", "a.inp"}, "d/Old/c.inp d/sub/old/b.inp "},
        {{"--exclude", "old"}, "d/a.inp d/sub/a.inp "},
        {{"--exclude", "sub/a.inp"}, "d/Old/c.inp d/a.inp d/sub/old/b.inp "},
        {{"--exclude", "sub/old", "--exclude", "A.*"}, "d/Old/c.inp "},
        {{"--exclude", "d"}, "d/Old/c.inp d/a.inp d/sub/a.inp d/sub/old/b.inp "},
    };
    for (const auto& [options, expected] : cases) {
        for (const char* const directory : {"d", "d/", "d//"}) {
            std::vector<std::string> arguments = {directory};
            arguments.insert(arguments.end(), options.begin(), options.end());
            std::string found = checked(arguments);
            for (std::size_t twice = found.find("//"); twice != std::string::npos; twice = found.find("//")) {
                found.erase(twice, 1);
            }
            EXPECT_EQ(found, expected) << options[1] << directory;
        }
    }
    EXPECT_EQ(checked({"d/a.inp", "--exclude", "a.inp"}), "d/a.inp ");
}

TEST_F(Inputs, AreReadFromAListOfLinesOrOfTextsThatEndInANulByte) {
    make({"a.inp", "b b.inp", "d/c.inp", "-", "line\nfeed.inp"});
    EXPECT_EQ(checked({"--files-from", "-"}, "a.inp\n\nb b.inp\na.inp\nd"), "a.inp b b.inp d/c.inp ");
    EXPECT_EQ(checked({"--files-from", "-"}, std::string("line\nfeed.inp\0d\0", 16)), "line\nfeed.inp d/c.inp ");
    EXPECT_EQ(checked({"--files-from", "-"}, "-\n"), "./- ");
    write_file(dir_ / "list", "b b.inp\n");
    EXPECT_EQ(checked({"d", "--files-from", "list"}), "d/c.inp b b.inp ");
    const ProgramRun failed = check({"--files-from", "none"});
    EXPECT_EQ(failed.status, 2);
    EXPECT_EQ(failed.err, "amesp-inp: cannot read 'none': No such file or directory\n");
}

TEST_F(Inputs, ThatAreNotThereAreAnErrorUnlessAllowed) {
    make({"d/a.txt", "e/b.inp"});
    ProgramRun run = check({"e", "d"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "amesp-inp: no file in 'd' matches *.inp *.aip (--allow-empty accepts that)\n");
    EXPECT_EQ(check({"e", "--exclude", "*"}).status, 2);
    EXPECT_EQ(checked({"e", "d", "--allow-empty"}), "e/b.inp ");
    EXPECT_EQ(checked({"d", "--allow-empty"}), "");
    run = check({"--files-from", "-"}, "\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "amesp-inp: '<stdin>' names no file (--allow-empty accepts that)\n");
    EXPECT_EQ(checked({"--files-from", "-", "--allow-empty"}, "\n"), "");
}

}  // namespace
}  // namespace velk::test
