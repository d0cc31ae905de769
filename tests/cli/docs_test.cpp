// Every example on the pages: files written as they stand there, commands run, their output compared.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

struct Block {
    std::string info;  // what comes after the opening fence
    std::string text;
};

std::vector<Block> blocks_of(const std::string& page) {
    std::vector<Block> blocks;
    std::istringstream lines(page);
    bool inside = false;
    std::size_t indent = 0;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t fence = line.find("```");
        if (fence != std::string::npos && line.find_first_not_of(' ') == fence) {
            if (!inside) {
                indent = fence;
                blocks.push_back({line.substr(fence + 3), ""});
            }
            inside = !inside;
        } else if (inside) {
            blocks.back().text += line.substr(std::min(indent, line.size())) + "\n";
        }
    }
    return blocks;
}

// Runs the lines that begin with "$ " in a shell; gives them back with their output, both streams together.
std::string replay(const std::string& session, const TempDir& dir) {
    const std::string program = AMESP_INP_PROGRAM;
    std::string result;
    std::istringstream lines(session);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("$ ")) {
            write_file(dir / ".script", "cd '" + dir.path() + "'\nPATH='" + program.substr(0, program.rfind('/')) +
                                            "':$PATH\nVELK_AMESP_INP_SCHEMA_YAML='" VELK_SOURCE_DIRECTORY
                                            "/schemas/input/amesp.yaml'\nexport PATH VELK_AMESP_INP_SCHEMA_YAML\n" +
                                            line.substr(2) + "\n");
            const int status = std::system(("sh " + (dir / ".script") + " >" + (dir / ".out") + " 2>&1").c_str());
            EXPECT_NE(status, -1);
            result += line + "\n" + read_file(dir / ".out");
        }
    }
    return result;
}

class Page : public testing::TestWithParam<const char*> {};

TEST_P(Page, ShowsWhatItsExamplesPrint) {
    const std::string path = std::string(VELK_SOURCE_DIRECTORY "/") + GetParam();
    const TempDir dir;
    int sessions = 0;
    for (const Block& block : blocks_of(read_file(path))) {
        const std::size_t space = block.info.find(' ');
        if (space != std::string::npos) {
            write_file(dir / block.info.substr(space + 1), block.text);
        } else if (block.info == "console") {
            EXPECT_EQ(replay(block.text, dir), block.text);
            ++sessions;
        } else if (block.info == "cpp") {
            EXPECT_EQ(block.text, read_file(VELK_SOURCE_DIRECTORY "/examples/library.cpp"));
        } else if (block.info != "text" || path.find("/verbs/") == std::string::npos) {  // those are help texts
            ADD_FAILURE() << "an example that nothing runs: " << block.info;
        }
    }
    EXPECT_GT(sessions, 0);
}

INSTANTIATE_TEST_SUITE_P(Docs, Page,
                         testing::Values("README.md", "docs/input-format.md", "docs/schema-format.md", "docs/json.md",
                                         "docs/verbs/check.md", "docs/verbs/geom.md", "docs/verbs/get.md",
                                         "docs/verbs/set.md"));

}  // namespace
}  // namespace velk::test
