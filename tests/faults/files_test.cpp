// Reading and writing whole files with every one of their allocations failing in turn.
#include <sys/stat.h>

#include <optional>
#include <velk/core/fs.hpp>
#include <velk/core/resource.hpp>
#include <velk/input/amesp.hpp>

#include "faults/allocations.hpp"
#include "support/sample_schema.hpp"
#include "support/temp_dir.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

TEST(FailingAllocation, LeavesReadingAFileWithAllOfItOrAnError) {
    const TempDir dir;
    const std::string content(100000, 'x');
    write_file(dir / "f", content);
    for (const std::string& path : {dir / "f", dir / "a-name-that-no-file-has", std::string("/proc/self/limits")}) {
        const bool readable = ::access(path.c_str(), R_OK) == 0;
        fail_each_allocation("read_text_file", [&](Shortage& shortage) {
            std::string text;
            bool refused = false;
            const bool out_of_memory = shortage.strikes([&] {
                try {
                    text = core::fs::read_text_file(path);
                } catch (const std::runtime_error& error) {
                    refused = std::string_view(error.what()) == "No such file or directory";
                }
            });
            EXPECT_EQ(refused, !readable && !out_of_memory) << path;
            EXPECT_EQ(text.empty(), out_of_memory || refused) << path;
        });
    }
}

TEST(FailingAllocation, LeavesAFileWhollyOldOrWhollyNew) {
    const TempDir dir;
    const std::string path = dir / "a-name-that-is-too-long-for-a-small-buffer";
    fail_each_allocation("write_text_file_atomic", [&](Shortage& shortage) {
        write_file(path, "old");
        bool written = false;
        const bool out_of_memory = shortage.strikes([&] { written = core::fs::write_text_file_atomic(path, "new"); });
        EXPECT_NE(out_of_memory, written);
        EXPECT_EQ(read_file(path), written ? "new" : "old");
        EXPECT_EQ(dir.entry_count(), 1U);
    });
}

TEST(FailingAllocation, LeavesTheFileOfAnEditorAsItWas) {
    const TempDir dir;
    const std::string path = dir / "a-name-that-is-too-long-for-a-small-buffer";
    const std::string missing = dir / "a-directory-that-is-not-there/file";
    const AIPEditor editor(AIPParser::parse_string("! hf\n>xyz 0 1\nH 0 0 0\nend\n", sample_schema(), {}).data,
                           sample_schema());
    fail_each_allocation("write_file", [&](Shortage& shortage) {
        write_file(path, "old");
        const bool out_of_memory = shortage.strikes([&] { editor.write_file(path); });
        EXPECT_EQ(read_file(path), out_of_memory ? "old" : editor.render());
        EXPECT_EQ(dir.entry_count(), 1U);
    });
    fail_each_allocation("write_file, refused", [&](Shortage& shortage) {
        bool refused = false;
        const bool out_of_memory = shortage.strikes([&] {
            try {
                editor.write_file(missing);
            } catch (const std::runtime_error& error) {
                refused = std::string_view(error.what()).starts_with("failed to write AMESP input file '");
            }
        });
        EXPECT_NE(out_of_memory, refused);
    });
}

TEST(FailingAllocation, GivesAFailedResultOrBadAllocForAFile) {
    const TempDir dir;
    write_file(dir / "f", "! hf\n>xyz 0 1\nH 0 0 0\nend\n");
    const ParseResult expected = AIPParser::parse_file(dir / "f", sample_schema(), {true, true});
    ASSERT_TRUE(expected.ok);
    for (const char* const name : {"f", "a-name-that-no-file-has"}) {
        const std::string path = dir / name;
        fail_each_allocation("parse_file", [&](Shortage& shortage) {
            std::optional<ParseResult> result;
            if (shortage.strikes([&] { result = AIPParser::parse_file(path, sample_schema(), {true, true}); })) {
                return;
            }
            if (result->ok) {
                EXPECT_EQ(result, expected);
            } else {
                EXPECT_EQ(result->data, AIPData());
                EXPECT_TRUE(result->error.starts_with("failed to read AMESP input '" + path + "': "));
            }
        });
    }
}

TEST(FailingAllocation, LeavesASearchWithoutAResult) {
    const TempDir dir;
    write_file(dir / "a-rather-long-name-of-a-data-file", "");
    const std::string expected = dir / "a-rather-long-name-of-a-data-file";
    fail_each_allocation("locate_file", [&](Shortage& shortage) {
        std::string found;
        if (!shortage.strikes([&] {
                found = core::resource::locate_file("a-rather-long-name-of-a-data-file", "/nowhere/that/exists",
                                                    {"", dir.path()}, 7);
            })) {
            EXPECT_EQ(found, expected);
        }
    });
    const std::string schema = resolve_schema_path("");
    fail_each_allocation("resolve_schema_path", [&](Shortage& shortage) {
        std::string found;
        if (!shortage.strikes([&] { found = resolve_schema_path(""); })) {
            EXPECT_EQ(found, schema);
        }
    });
}

}  // namespace
}  // namespace velk::test
