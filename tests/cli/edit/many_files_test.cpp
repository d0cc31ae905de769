// Several files written by one command: what can be known before the first is written is, and a later failure ends it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

// Valid; `fmt`, `check --fix` and each of the edits below change it.
constexpr auto untidy = "% maxcore 1\n! HF sto-3g\n>xyz 0 1\nHe 0 0 0\n";
// Not changed by `fmt`, `check --fix` and setting maxcore to 2.
constexpr auto done = "% maxcore 2\n\n! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";

struct Writer {
    const char* name;
    Words words;  // before the files
};

const Writer writers[] = {
    {"Fmt", {"fmt", "--force", "-i"}},
    {"Set", {"set", "-i", "--directive", "maxcore=2"}},
    {"CheckFix", {"check", "-q", "--fail-on", "never", "--fix"}},
    {"CheckFixOnThreads", {"check", "-q", "-j", "3", "--fail-on", "never", "--fix"}},
};

class ManyFiles : public testing::TestWithParam<Writer> {
protected:
    ManyFiles() {
        for (const char* const name : {"a.inp", "b.inp", "c.inp"}) {
            write_file(dir_ / name, untidy);
        }
    }

    ProgramRun run(const Words& more) const {
        Words words = GetParam().words;
        words.insert(words.end(), more.begin(), more.end());
        return run_edit(words, {.directory = dir_.path(), .obeys_permissions = true});
    }

    bool is_untouched(const std::string& name) const { return read_file(dir_ / name) == untidy; }

    const TempDir dir_;
};

TEST_P(ManyFiles, AreLeftAloneWhereOneCannotBeRead) {
    std::filesystem::create_directory(dir_ / "folder");
    ::chmod((dir_ / "folder").c_str(), 0);
    ::chmod((dir_ / "b.inp").c_str(), 0);
    const ProgramRun run = this->run({"a.inp", "missing.inp", "b.inp", "folder", "c.inp"});
    ::chmod((dir_ / "folder").c_str(), 0700);
    ::chmod((dir_ / "b.inp").c_str(), 0600);
    if (run.status == cannot_obey_permissions) {
        GTEST_SKIP() << "root cannot give up its rights here";
    }
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, testing::StartsWith("amesp-inp: cannot read 'missing.inp': No such file or directory\n"
                                             "amesp-inp: cannot read 'b.inp': Permission denied\n"
                                             "amesp-inp: cannot read 'folder': "));
    EXPECT_THAT(run.err, testing::EndsWith("amesp-inp: 0 of 5 files were written\n"));
    EXPECT_TRUE(is_untouched("a.inp") && is_untouched("b.inp") && is_untouched("c.inp"));
}

TEST_P(ManyFiles, AreLeftAloneWhereOneThatWouldChangeIsWriteProtected) {
    write_file(dir_ / "done.inp", done);
    ::chmod((dir_ / "done.inp").c_str(), 0444);
    if (GetParam().words[1] != "--force") {
        ::chmod((dir_ / "c.inp").c_str(), 0444);
        const ProgramRun run = this->run({"a.inp", "done.inp", "c.inp"});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err,
                  "amesp-inp: cannot write 'c.inp': it is write-protected (--force replaces it)\n"
                  "amesp-inp: 0 of 3 files were written\n");
        EXPECT_TRUE(is_untouched("a.inp") && is_untouched("c.inp"));
        ::chmod((dir_ / "c.inp").c_str(), 0644);
    }
    const ProgramRun run = this->run({"a.inp", "done.inp", "c.inp"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_FALSE(is_untouched("a.inp") || is_untouched("c.inp"));
}

TEST_P(ManyFiles, AreWrittenUpToTheFirstThatCannotBe) {
    std::filesystem::create_directory(dir_ / "folder");
    write_file(dir_ / "folder/b.inp", untidy);
    write_file(dir_ / "done.inp", done);
    ::chmod((dir_ / "folder").c_str(), 0500);
    Words files = {"done.inp", "a.inp", "folder/b.inp"};
    for (int i = 0; i < 40; ++i) {
        files.push_back("late-" + std::to_string(i) + ".inp");
        write_file(dir_ / files.back(), untidy);
    }
    const ProgramRun run = this->run(files);
    ::chmod((dir_ / "folder").c_str(), 0700);
    if (run.status == cannot_obey_permissions) {
        GTEST_SKIP() << "root cannot give up its rights here";
    }
    EXPECT_EQ(run.status, 2);
    std::size_t written = 0;
    for (const std::string& file : files) {
        written += file != "done.inp" && !is_untouched(file) ? 1U : 0U;
    }
    EXPECT_FALSE(is_untouched("a.inp"));
    EXPECT_TRUE(is_untouched("folder/b.inp") && is_untouched("late-39.inp"));
    if (GetParam().name != std::string("CheckFixOnThreads")) {
        EXPECT_EQ(written, 1U);
    }
    EXPECT_THAT(run.err, HasSubstr("amesp-inp: cannot write 'folder/b.inp': Permission denied\n"));
    EXPECT_THAT(run.err, testing::EndsWith("amesp-inp: " + std::to_string(written) + " of 43 files were written\n"));
}

INSTANTIATE_TEST_SUITE_P(Writers, ManyFiles, testing::ValuesIn(writers),
                         [](const auto& writer) { return std::string(writer.param.name); });

TEST(Arguments, AreCheckedBeforeTheFirstWrite) {
    const TempDir dir;
    write_file(dir / "a.inp", untidy);
    write_file(dir / "b.inp", untidy);
    const ProgramRun run =
        run_edit({"set", "-i", "a.inp", "b.inp", "--add-token", "opt", "--directive", "x"}, {.directory = dir.path()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "amesp-inp: --directive expects NAME=VALUE, got 'x'\n"
              "amesp-inp: 0 of 2 files were written\n");
    EXPECT_EQ(read_file(dir / "a.inp"), untidy);
}

struct Mistake {
    Words words;
    const char* question;  // empty: none is asked
};

const Mistake mistakes[] = {
    {{"set", "-i", "w.inp", "--method", "b3lyp", "def2-svp"}, "--method 'b3lyp def2-svp'"},
    {{"set", "--method", "b3lyp", "def2-svp", "w.inp", "-i"}, "--method 'b3lyp def2-svp'"},
    {{"set", "-i", "--method", "b3lyp", "def2-svp", "opt", "w.inp"}, "--method 'b3lyp def2-svp opt'"},
    {{"set", "-i", "--method", "b3lyp", "def2-svp", "new.inp", "w.inp"}, "--method 'b3lyp def2-svp'"},
    {{"set", "w.inp", "--method", "b3lyp", "def2-svp"}, "--method 'b3lyp def2-svp'"},
    {{"set", "--diff", "w.inp", "--directive", "a=1", "--directive", "title=two", "words"},
     "--directive 'title=two words'"},
    {{"set", "-i", "w.inp", "--entry", "scf.x=two", "words"}, "--entry 'scf.x=two words'"},
    {{"set", "-i", "w.inp", "--method", "b3lyp", "other.inp"}, ""},
    {{"set", "-i", "w.inp", "--method", "b3lyp", "-q", "other"}, ""},
    {{"set", "-i", "w.inp", "--add-token", "opt", "other"}, ""},
    {{"set", "-i", "other", "w.inp", "--method", "b3lyp"}, ""},
    {{"check", "--fix", "all", "w.inp"}, "--fix=all"},
    {{"check", "w.inp", "--fix", "certain"}, "--fix=certain"},
    {{"check", "--fix", "other", "w.inp"}, ""},
    {{"check", "-q", "all", "w.inp", "--fix"}, ""},
};

TEST(AWordThatNamesNoFile, MayHaveBelongedToTheOptionBeforeIt) {
    for (const auto& [words, question] : mistakes) {
        const TempDir dir;
        write_file(dir / "w.inp", untidy);
        const ProgramRun run = run_edit(words, {.directory = dir.path()});
        const std::string all = testing::PrintToString(words);
        EXPECT_EQ(run.status, 2) << all;
        EXPECT_EQ(run.out, "") << all;
        EXPECT_EQ(read_file(dir / "w.inp"), untidy) << all;
        EXPECT_EQ(dir.entry_count(), 1U) << all;
        EXPECT_THAT(run.err, HasSubstr(*question == '\0' ? std::string(": No such file or directory\n")
                                                         : std::string(": No such file or directory; did you mean ") +
                                                               question + "?\n"))
            << all;
    }
}

// A word that is there is a file, whatever stands before it.
TEST(AWordThatNamesAFile, IsOne) {
    const TempDir dir;
    write_file(dir / "def2-svp", untidy);
    write_file(dir / "all", untidy);
    EXPECT_EQ(run_edit({"set", "-i", "--method", "hf", "def2-svp"}, {.directory = dir.path()}).status, 0);
    EXPECT_THAT(read_file(dir / "def2-svp"), HasSubstr("! HF\n"));
    EXPECT_EQ(run_edit({"check", "-q", "--fix", "all"}, {.directory = dir.path()}).status, 0);
}

// What comes through a pipe can be read once.
TEST(AnOperandThatIsNoFile, IsReadOnce) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const std::string text = done;
    ASSERT_EQ(::write(pipe[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    ::close(pipe[1]);
    const ProgramRun run =
        run_edit({"set", "-i", "/dev/stdin", "--diff", "--directive", "maxcore=3"}, {.input_descriptor = pipe[0]});
    ::close(pipe[0]);
    EXPECT_THAT(run.out, HasSubstr("+% maxcore 3\n")) << run.err;
}

}  // namespace
}  // namespace velk::test
