// The page on editing in place: each of its edits, run on its input, gives the difference that it shows.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "in_place/edited_in_place.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

struct Block {
    std::string language;
    std::string text;
};

std::vector<Block> blocks_of_the_page() {
    std::ifstream file(VELK_SOURCE_DIRECTORY "/docs/editing-in-place.md");
    std::vector<Block> blocks;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        const bool fence = line.rfind("```", 0) == 0;
        if (fence && !inside) {
            blocks.push_back({line.substr(3), ""});
        } else if (!fence && inside) {
            blocks.back().text += line + "\n";
        }
        inside = inside != fence;
    }
    return blocks;
}

std::string without_space(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\n'; }), text.end());
    return text;
}

struct Side {
    std::string before;
    std::string after;
};

Side sides_of(const std::string& difference) {
    Side side;
    std::istringstream lines(difference);
    for (std::string line; std::getline(lines, line);) {
        const std::string text = line.substr(1) + "\n";
        side.before += line[0] == '+' ? "" : text;
        side.after += line[0] == '-' ? "" : text;
    }
    return side;
}

// An edit and its own source text.
#define VELK_EDIT(...)                                                     \
    {                                                                      \
        without_space(#__VA_ARGS__), [](AIPEditor& editor) { __VA_ARGS__ } \
    }

const std::map<std::string, Edit>& edits_of_the_page() {
    static const std::map<std::string, Edit> edits = {
        VELK_EDIT(editor.set_directive("nprocs", "8");),
        VELK_EDIT(editor.set_directive("title", "water");),
        VELK_EDIT(editor.remove_directive("nprocs");),
        VELK_EDIT(editor.remove_method_token("d3bj");),
        VELK_EDIT(editor.add_method_token("freq");),
        VELK_EDIT(editor.set_method_tokens({"b3lyp", "def2-TZVP", "d3bj", "opt"});),
        VELK_EDIT(editor.set_section_entry("scf", "maxcyc", "50");),
        VELK_EDIT(editor.set_section_entry("scf", "guess", "core");),
        VELK_EDIT(editor.remove_section_entry("scf", "maxcyc");),
        VELK_EDIT(editor.set_section_entry("opt", "conv", "tight");),
        VELK_EDIT(editor.upsert_section("xyz", {"1", "2"});),
        VELK_EDIT(editor.remove_section("scf");),
        VELK_EDIT(auto atoms = editor.data().coordinate_section()->atoms; atoms[2].y = -0.75;
                  editor.set_xyz_geometry(0, 1, atoms);),
        VELK_EDIT(editor.set_section_entry("opt", "freeze", "bond=1-2");),
    };
    return edits;
}

const Block* input_of(const std::vector<Block>& blocks) {
    const auto found =
        std::find_if(blocks.begin(), blocks.end(), [](const Block& block) { return block.language == "amesp"; });
    return found == blocks.end() ? nullptr : &*found;
}

TEST(EditingInPlacePage, ShowsWhatEachEditChanges) {
    const std::vector<Block> blocks = blocks_of_the_page();
    const Block* const input = input_of(blocks);
    ASSERT_NE(input, nullptr);
    std::size_t shown = 0;
    for (std::size_t i = 0; i + 1 < blocks.size(); ++i) {
        if (blocks[i].language != "cpp") {
            continue;
        }
        SCOPED_TRACE(blocks[i].text);
        ++shown;
        ASSERT_EQ(blocks[i + 1].language, "diff");
        const auto edit = edits_of_the_page().find(without_space(blocks[i].text));
        ASSERT_NE(edit, edits_of_the_page().end());
        const Side side = sides_of(blocks[i + 1].text);
        const std::size_t place = input->text.find(side.before);
        ASSERT_NE(place, std::string::npos);
        std::string expected = input->text;
        expected.replace(place, side.before.size(), side.after);
        const OverlayResult result = edited_in_place(input->text, edit->second);
        EXPECT_EQ(result.text, expected);
        EXPECT_TRUE(result.problems.empty());
    }
    EXPECT_EQ(shown, edits_of_the_page().size());
}

}  // namespace
}  // namespace velk::test
