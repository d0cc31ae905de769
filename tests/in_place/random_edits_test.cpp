// Laying random edits over random texts. VELK_AMESP_INP_RANDOM_EDITS sets the number of edits (100000 without it) and
// VELK_AMESP_INP_RANDOM_SEED where to start.
#include <gtest/gtest.h>

#include <cstdlib>

#include "in_place/edited_in_place.hpp"
#include "in_place/in_place_laws.hpp"
#include "in_place/random_document.hpp"
#include "in_place/random_edits.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

std::uint64_t number_from(const char* variable, std::uint64_t otherwise) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

class RandomCase {
public:
    explicit RandomCase(std::uint64_t seed) : random_(seed), text_(random_document(random_)) {
        preserve_unknown_ = !random_.one_in(4);
        expressible_only_ = !random_.one_in(5);
        before_ = AIPParser::parse_string(text_, in_place_schema(), {preserve_unknown_, false}).data;
    }

    // The number of edits made.
    std::size_t run() {
        AIPEditor editor(before_, in_place_schema());
        EXPECT_EQ(editor.render_over(text_, preserve_unknown_).text, text_);
        const std::size_t count = 1 + random_.below(5);
        for (std::size_t i = 0; i < count; ++i) {
            random_edit(random_, editor, expressible_only_, log_);
        }
        const OverlayResult result = editor.render_over(text_, preserve_unknown_);
        if (log_.expressible) {
            for (const ValidationIssue& problem : result.problems) {
                EXPECT_EQ(problem.severity, IssueSeverity::Warning) << problem.message;
            }
        }
        EXPECT_EQ(broken_law({text_, preserve_unknown_, before_, editor, log_.new_geometry, result}), "");
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "preserve_unknown " << preserve_unknown_ << "\n--- text\n"
                          << text_ << "\n--- edits\n"
                          << log_.text << "--- result\n"
                          << result.text;
        }
        return count;
    }

private:
    Random random_;
    std::string text_;
    bool preserve_unknown_ = true;
    bool expressible_only_ = true;
    AIPData before_;
    EditLog log_;
};

TEST(RandomEdits, ReadBackAndLeaveEveryOtherLineAlone) {
    const std::uint64_t wanted = number_from("VELK_AMESP_INP_RANDOM_EDITS", 100000);
    std::uint64_t seed = number_from("VELK_AMESP_INP_RANDOM_SEED", 1);
    std::uint64_t edits = 0;
    for (; edits < wanted && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        edits += RandomCase(seed).run();
    }
    RecordProperty("edits", std::to_string(edits));
    EXPECT_GE(edits, wanted);
}

}  // namespace
}  // namespace velk::test
