// Edits written into a text, as tables of (name, text, edit, expected text).
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp.hpp>

#include "in_place/in_place_schema.hpp"

namespace velk::test {

using Edit = std::function<void(input::amesp::AIPEditor&)>;

inline input::amesp::OverlayResult edited_in_place(std::string_view text, const Edit& edit,
                                                   bool preserve_unknown = true) {
    using namespace input::amesp;
    const AIPData data = AIPParser::parse_string(text, in_place_schema(), {preserve_unknown, false}).data;
    AIPEditor editor(data, in_place_schema());
    edit(editor);
    return editor.render_over(text, preserve_unknown);
}

struct EditCase {
    std::string name;
    std::string text;
    Edit edit;
    std::string expected;
    std::vector<std::string> said = {};  // the messages of the problems
};

inline void expect_edited(const std::vector<EditCase>& cases) {
    for (const EditCase& c : cases) {
        SCOPED_TRACE(c.name);
        const auto result = edited_in_place(c.text, c.edit);
        EXPECT_EQ(result.text, c.expected);
        std::vector<std::string> said;
        for (const auto& problem : result.problems) {
            said.push_back(problem.message);
        }
        EXPECT_EQ(said, c.said);
    }
}

}  // namespace velk::test
