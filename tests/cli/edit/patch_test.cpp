// Printed differences as patch and git read them: whatever a file is called, its change goes to that file alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/edit/edit_program.hpp"

namespace velk::test {
namespace {

namespace stdfs = std::filesystem;

constexpr auto tools = {"patch --binary -f -s -p1 <../change", "git apply ../change"};

// A directory in which a difference is made and applied; the difference itself lies outside.
struct Workplace {
    TempDir dir;
    std::string inside = dir / "inside";

    Workplace() { stdfs::create_directory(inside); }

    void write(const std::string& name, const std::string& text) const {
        stdfs::create_directories(stdfs::path(inside + "/" + name).parent_path());
        write_file(inside + "/" + name, text);
    }

    std::string difference(const std::string& name) const {
        return run_edit({"set", "--dry-run", "--directive", "maxcore=1", "--", name}, {.directory = inside}).out;
    }

    bool apply(const std::string& difference, const std::string& tool) const {
        write_file(dir / "change", difference);
        return std::system(("cd '" + inside + "' && " + tool + " >../said 2>&1").c_str()) == 0;
    }
};

struct Named {
    std::string name;
    std::string head;  // both names, without what tells them apart
};

class PatchName : public testing::TestWithParam<Named> {};

TEST_P(PatchName, IsReadBackByPatchAndGit) {
    for (const std::string tool : tools) {
        const Workplace place;
        place.write(GetParam().name, water);
        const std::string difference = place.difference(GetParam().name);
        const bool quoted = GetParam().head.starts_with('"');
        const std::string rest = quoted ? GetParam().head.substr(1) : GetParam().head;
        const std::string mark = quoted ? "\"" : "";
        EXPECT_THAT(difference, testing::StartsWith("--- " + mark + "a/" + rest + "\t\n+++ " + mark + "b/" + rest +
                                                    "\t\n@@ -1,4 +1,4 @@\n"));
        std::string changed = water;
        changed.replace(changed.find("2000"), 4, "1");
        ASSERT_TRUE(place.apply(difference, tool)) << difference << read_file(place.dir / "said");
        EXPECT_EQ(read_file(place.inside + "/" + GetParam().name), changed) << difference;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Names, PatchName,
    testing::Values(Named{"water.inp", "water.inp"}, Named{"my water.inp", "my water.inp"}, Named{" a", " a"},
                    Named{"a 2024-01-01 10:00:00 +0000", "a 2024-01-01 10:00:00 +0000"}, Named{"a ", R"("a ")"},
                    Named{"a\tb", R"("a\tb")"}, Named{"a\nb", R"("a\nb")"}, Named{"a\r", R"("a\r")"},
                    Named{"\a\b\v\f", R"("\a\b\v\f")"}, Named{"a\"b", R"("a\"b")"}, Named{"a\\b", R"("a\\b")"},
                    Named{"\x01\x1b\x7f~", R"("\001\033\177~")"}, Named{"\u00fc\x9b", R"("\303\274\233")"},
                    Named{"a;$(b)'c", "a;$(b)'c"}, Named{"./a", "a"}, Named{"./b/./c d//e", "b/c d/e"},
                    Named{"b\n/c", R"("b\n/c")"}, Named{"..a/b..", "..a/b.."}));

TEST(Patch, OfANameWithLineFeedsLeavesOtherFilesAlone) {
    const std::string name = "a\n--- a/other.inp\n+++ b/other.inp\n@@ -1,1 +1,1 @@\n-% maxcore 2000\n+% maxcore 3\n";
    for (const std::string tool : tools) {
        const Workplace place;
        place.write("other.inp", water);
        place.write(name, water);
        EXPECT_TRUE(place.apply(place.difference(name), tool));
        EXPECT_EQ(read_file(place.inside + "/other.inp"), water);
        EXPECT_NE(read_file(place.inside + "/" + name), water);
    }
}

TEST(Patch, OfANameWithABlankAtItsEndLeavesTheOneWithoutAlone) {
    for (const std::string tool : tools) {
        const Workplace place;
        place.write("a", water);
        place.write("a ", water);
        EXPECT_TRUE(place.apply(place.difference("a "), tool));
        EXPECT_EQ(read_file(place.inside + "/a"), water);
        EXPECT_NE(read_file(place.inside + "/a "), water);
    }
}

TEST(Patch, OfAFullPathIsTakenFromTheRoot) {
    const TempDir dir;
    write_file(dir / "a b.inp", water);
    const std::string difference = run_edit({"set", "--dry-run", "--directive", "maxcore=1", dir / "a b.inp"}).out;
    const std::string below = (dir / "a b.inp").substr(1);
    EXPECT_THAT(difference, testing::StartsWith("--- a/" + below + "\t\n+++ b/" + below + "\t\n"));
    write_file(dir / "change", difference);
    ASSERT_EQ(std::system(("cd / && patch -f -s -p1 <" + dir.path() + "/change").c_str()), 0);
    EXPECT_EQ(run_edit({"get", dir / "a b.inp", "%maxcore"}).out, "1\n");
}

TEST(Patch, OfAFileOutsideIsLeftToItsReaderToRefuse) {
    for (const std::string tool : tools) {
        const Workplace place;
        place.write("../outside.inp", water);
        place.write("b/inside.inp", water);
        for (const std::string name : {"../outside.inp", "b/../../outside.inp"}) {
            const std::string difference = place.difference(name);
            EXPECT_THAT(difference, testing::StartsWith("--- a/" + name + "\t\n+++ b/" + name + "\t\n"));
            EXPECT_FALSE(place.apply(difference, tool));
            EXPECT_EQ(read_file(place.dir / "outside.inp"), water);
        }
    }
}

TEST(Patch, KeepsLineEndsAndAMissingLastOne) {
    for (const std::string text : {"% maxcore 2\r\n! hf\r\n", "% maxcore 2\r\n! hf", "% maxcore 2", "% maxcore 2\r"}) {
        for (const std::string tool : tools) {
            const Workplace place;
            place.write("a b.inp", text);
            ASSERT_TRUE(place.apply(place.difference("a b.inp"), tool)) << text << read_file(place.dir / "said");
            EXPECT_EQ(read_file(place.inside + "/a b.inp"), "% maxcore 1" + text.substr(11));
        }
    }
}

TEST(Patch, FollowsAListOfNamesThatHoldsNoOtherPatch) {
    const std::string name = "a\n--- b/c";
    const Workplace place;
    place.write(name, "! hf\n% maxcore 2");
    place.write("\u00fc b", "! hf\n% maxcore 2");
    const ProgramRun quoted = run_edit({"fmt", "--check", "--diff", name}, {.directory = place.inside});
    EXPECT_THAT(quoted.out, testing::StartsWith("\"a\\n--- b/c\"\n--- \"a/a\\n--- b/c\"\t\n"));
    EXPECT_EQ(run_edit({"fmt", "--check", "\u00fc b"}, {.directory = place.inside}).out, "\u00fc b\n");
}

}  // namespace
}  // namespace velk::test
