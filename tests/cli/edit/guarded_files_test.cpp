// Files that no verb replaces unless it is forced to: write-protected ones, those with several hard links, the input
// itself under the name of an output, and for `new` any that exist.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

using Words = std::vector<std::string>;

constexpr auto unfixed = "% maxcore 1\n! HF sto-3g\n>xyz 0 1\nHe 0 0 0\n";
constexpr auto untidy = "! HF sto-3g\n>xyz 0 1\nHe 0 0 0\nend\n";
constexpr auto xyz = "1\ncharge=0 multiplicity=1\nHe 0 0 1\n";

struct Write {
    const char* name;
    Words words;  // what writes "f"
    const char* before = unfixed;
};

const Write writes[] = {
    {"FmtInPlace", {"fmt", "-i", "f"}, untidy},
    {"SetInPlace", {"set", "-i", "f", "--directive", "maxcore=2"}},
    {"SetOutput", {"set", "a.inp", "-o", "f", "--directive", "maxcore=2"}},
    {"GeomInPlace", {"geom", "-i", "f", "--from-xyz", "m.xyz"}},
    {"GeomOutput", {"geom", "a.inp", "-o", "f", "--from-xyz", "m.xyz"}},
    {"GeomToXyz", {"geom", "a.inp", "--to-xyz", "f"}},
    {"CheckFix", {"check", "-q", "--fail-on", "never", "--fix", "f"}},
};

struct Guard {
    const char* what;
    mode_t mode;
    bool linked;
    bool through_a_link;
    std::string reason;  // empty: it may be replaced
};

const Guard guards[] = {
    {"nothing", 0644, false, false, ""},
    {"write permission of the owner alone", 0200 | 0400, false, false, ""},
    {"mode bits", 0444, false, false, "it is write-protected (--force replaces it)"},
    {"mode bits of what a link names", 0400, false, true, "it is write-protected (--force replaces it)"},
    {"a permission that others have", 0466, false, false, "it is write-protected (--force replaces it)"},
    {"a second name", 0644, true, false,
     "it has 2 hard links, of which the others would keep the old content (--force replaces it)"},
};

class GuardedFile : public testing::TestWithParam<Write> {
protected:
    void prepare(const Guard& guard) const {
        const std::string file = guard.through_a_link ? dir_ / "target" : dir_ / "f";
        write_file(dir_ / "a.inp", unfixed);
        write_file(dir_ / "m.xyz", xyz);
        write_file(file, GetParam().before);
        if (guard.linked) {
            std::filesystem::create_hard_link(file, dir_ / "other");
        }
        if (guard.through_a_link) {
            std::filesystem::create_symlink("target", dir_ / "f");
        }
        ::chmod(file.c_str(), guard.mode);
    }

    ProgramRun run(bool forced) const {
        Words words = GetParam().words;
        if (forced) {
            words.emplace_back("--force");
        }
        return run_edit(words, {.directory = dir_.path(), .obeys_permissions = true});
    }

    const TempDir dir_;
};

TEST_P(GuardedFile, IsReplacedOnlyByForce) {
    for (const Guard& guard : guards) {
        SCOPED_TRACE(guard.what);
        for (const bool forced : {false, true}) {
            std::filesystem::remove(dir_ / "f");
            std::filesystem::remove(dir_ / "other");
            prepare(guard);
            const ProgramRun done = run(forced);
            if (done.status == cannot_obey_permissions) {
                GTEST_SKIP() << "root cannot give up its rights here";
            }
            const bool refused = !forced && !guard.reason.empty();
            EXPECT_EQ(done.status, refused ? 2 : 0) << done.err;
            EXPECT_EQ(read_file(dir_ / "f") == GetParam().before, refused);
            if (refused) {
                EXPECT_THAT(done.err, testing::HasSubstr("amesp-inp: cannot write 'f': " + guard.reason + "\n"));
            }
            if (guard.linked) {
                EXPECT_EQ(read_file(dir_ / "other"), GetParam().before);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Verbs, GuardedFile, testing::ValuesIn(writes),
                         [](const auto& write) { return std::string(write.param.name); });

TEST(GuardedFiles, AreLeftAloneByWhatOnlyPrints) {
    const TempDir dir;
    write_file(dir / "f", untidy);
    ::chmod((dir / "f").c_str(), 0444);
    EXPECT_EQ(run_edit({"fmt", "--diff", "-i", "f"}, {.directory = dir.path()}).status, 0);
    EXPECT_EQ(run_edit({"set", "f", "--directive", "maxcore=2"}, {.directory = dir.path()}).status, 0);
    EXPECT_EQ(run_edit({"check", "-q", "--fix", "--diff", "f"}, {.directory = dir.path()}).status, 0);
}

TEST(GuardedFiles, IncludeTheInputOfAGeometryByWhateverName) {
    for (const char* const name : {"a.inp", "./a.inp", "link", "hard"}) {
        const TempDir dir;
        write_file(dir / "a.inp", unfixed);
        std::filesystem::create_symlink("a.inp", dir / "link");
        if (name == std::string("hard")) {
            std::filesystem::create_hard_link(dir / "a.inp", dir / "hard");
        }
        const ProgramRun run = run_edit({"geom", "a.inp", "--to-xyz", name}, {.directory = dir.path()});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err,
                  std::string("amesp-inp: cannot write '") + name + "': it is the input file (--force replaces it)\n");
        EXPECT_EQ(read_file(dir / "a.inp"), unfixed);
        const ProgramRun forced = run_edit({"geom", "a.inp", "--to-xyz", name, "--force"}, {.directory = dir.path()});
        EXPECT_EQ(forced.status, 0) << forced.err;
        EXPECT_THAT(read_file(dir / name), testing::StartsWith("1\n"));
    }
}

TEST(GuardedFiles, DoNotIncludeAnotherFileOrTheStandardStreamsOfAGeometry) {
    const TempDir dir;
    write_file(dir / "a.inp", unfixed);
    write_file(dir / "old.xyz", "old");
    write_file(dir / "-", unfixed);  // a file of that name is no standard stream
    EXPECT_EQ(run_edit({"geom", "a.inp", "--to-xyz", "old.xyz"}, {.directory = dir.path()}).status, 0);
    EXPECT_THAT(read_file(dir / "old.xyz"), testing::StartsWith("1\n"));
    EXPECT_EQ(run_edit({"geom", "-", "--to-xyz", "-"}, {.input = unfixed, .directory = dir.path()}).status, 0);
    EXPECT_EQ(run_edit({"geom", "./-", "--to-xyz", "-"}, {.directory = dir.path()}).status, 0);
    EXPECT_EQ(run_edit({"geom", "-", "--to-xyz", "./-"}, {.input = unfixed, .directory = dir.path()}).status, 0);
}

TEST(GuardedFiles, IncludeAnyThatExistWhenAnInputIsMade) {
    const TempDir dir;
    write_file(dir / "m.xyz", xyz);
    const Words make = {"new", "--geometry", "m.xyz", "--method", "hf sto-3g", "-o", "f"};
    Words force = make;
    force.emplace_back("--force");
    write_file(dir / "f", "mine");
    const ProgramRun run = run_edit(make, {.directory = dir.path()});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, testing::EndsWith("amesp-inp: cannot write 'f': it exists (--force replaces it)\n"));
    EXPECT_EQ(read_file(dir / "f"), "mine");
    Words preview = make;
    preview.emplace_back("--diff");
    EXPECT_EQ(run_edit(preview, {.directory = dir.path()}).status, 0);
    EXPECT_EQ(read_file(dir / "f"), "mine");
    EXPECT_EQ(run_edit(force, {.directory = dir.path()}).status, 0);
    EXPECT_THAT(read_file(dir / "f"), testing::HasSubstr("! hf sto-3g"));
    std::filesystem::remove(dir / "f");
    std::filesystem::create_symlink("absent", dir / "f");
    EXPECT_EQ(run_edit(make, {.directory = dir.path()}).status, 0);
    EXPECT_THAT(read_file(dir / "absent"), testing::HasSubstr("! hf sto-3g"));
    write_file(dir / "-", "");
    Words print = make;
    print.back() = "-";
    EXPECT_EQ(run_edit(print, {.directory = dir.path()}).status, 0);
}

}  // namespace
}  // namespace velk::test
