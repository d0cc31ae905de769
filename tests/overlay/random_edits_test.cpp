// Laying random edits over random texts. VELK_AMESP_INP_RANDOM_EDITS sets the number of edits (100000 without it) and
// VELK_AMESP_INP_RANDOM_SEED where to start.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <velk/core/text.hpp>

#include "overlay/laid_over.hpp"
#include "overlay/random_document.hpp"
#include "overlay/random_edits.hpp"
#include "overlay/untouched_lines.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

std::uint64_t number_from(const char* variable, std::uint64_t otherwise) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

std::string bits(double value) {
    std::uint64_t number = 0;
    std::memcpy(&number, &value, sizeof number);
    return std::to_string(number);
}

// All of a section that edits may change, as one text.
std::string described(const Section& section, bool known_only) {
    std::string text = ">" + section.name;
    for (const std::string& argument : section.arguments) {
        text += " [" + argument + "]";
    }
    for (const SectionEntry& entry : section.entries) {
        text += entry.known || !known_only ? "\n[" + entry.key + "] [" + core::text::trim(entry.value) + "]" : "";
    }
    for (const AtomRecord& atom : section.atoms) {
        text += "\n" + atom.symbol + " " + bits(atom.x) + " " + bits(atom.y) + " " + bits(atom.z);
    }
    // A new geometry takes over the comments of the old one.
    for (const std::string& line : section.name == "xyz" ? std::vector<std::string>() : section.raw_lines) {
        text += "\n" + line;
    }
    return text;
}

// A document as text. The place of a new geometry among the sections is left open.
std::string described(const AIPData& data, bool known_only, bool geometry_last) {
    std::string text;
    for (const Directive& directive : data.directives) {
        text += directive.known || !known_only ? "%[" + directive.name + "] [" + directive.value + "]\n" : "";
    }
    for (const MethodToken& token : data.method_tokens) {
        text += token.known || !known_only ? "![" + token.canonical + "]\n" : "";
    }
    std::string geometries;
    for (const Section& section : data.sections) {
        if (section.known || !known_only) {
            std::string& place = geometry_last && section.name == "xyz" ? geometries : text;
            place += described(section, known_only) + "\n";
        }
    }
    return text + geometries;
}

// Whether the untouched lines of `text` are all in `result`, in their order. The last one may have got a line end.
std::string first_lost_line(const std::string& text, const std::vector<bool>& untouched, const std::string& result) {
    const std::vector<std::string> old_lines = whole_lines(text);
    const std::vector<std::string> new_lines = whole_lines(result);
    auto place = new_lines.begin();
    for (std::size_t i = 0; i < old_lines.size(); ++i) {
        if (!untouched[i]) {
            continue;
        }
        const std::string& line = old_lines[i];
        place = std::find_if(place, new_lines.end(), [&](const std::string& candidate) {
            return candidate == line ||
                   (line.back() != '\n' && (candidate == line + "\n" || candidate == line + "\r\n"));
        });
        if (place == new_lines.end()) {
            return "line " + std::to_string(i + 1) + ": " + line;
        }
        ++place;
    }
    return {};
}

// How many lines the records that are new in a document may take at most.
std::size_t room_for_new_records(const AIPData& before, const AIPData& after) {
    std::size_t lines = after.method_tokens.empty() ? 0 : 1;
    for (const Directive& directive : after.directives) {
        lines += directive.location ? 0U : 1U;
    }
    for (const Section& section : after.sections) {
        const Section* const old = before.find_section(section.name);
        const std::size_t old_atoms = old == nullptr ? 0 : old->atoms.size();
        lines += section.location ? 0U : 3U;  // a blank line, header and end
        lines += section.terminated ? 1U : 0U;
        lines += section.atoms.size() > old_atoms ? section.atoms.size() - old_atoms : 0;
        lines += static_cast<std::size_t>(
            std::count_if(section.entries.begin(), section.entries.end(),
                          [](const SectionEntry& entry) { return !entry.location.has_value(); }));
    }
    return lines;
}

class RandomCase {
public:
    explicit RandomCase(std::uint64_t seed) : random_(seed), text_(random_document(random_)) {
        preserve_unknown_ = !random_.one_in(4);
        expressible_only_ = !random_.one_in(5);
        before_ = AIPParser::parse_string(text_, overlay_schema(), {preserve_unknown_, false}).data;
    }

    // The number of edits made.
    std::size_t run() {
        AIPEditor editor(before_, overlay_schema());
        EXPECT_EQ(editor.render_over(text_, preserve_unknown_).text, text_);
        const std::size_t count = 1 + random_.below(5);
        for (std::size_t i = 0; i < count; ++i) {
            random_edit(random_, editor, expressible_only_, log_);
        }
        const OverlayResult result = editor.render_over(text_, preserve_unknown_);
        if (log_.expressible) {
            EXPECT_EQ(result.problems.size(), 0u) << result.problems.front().message;
        }
        if (result.problems.empty()) {
            const AIPData read =
                AIPParser::parse_string(result.text, overlay_schema(), {preserve_unknown_, false}).data;
            EXPECT_EQ(described(read, !preserve_unknown_, log_.new_geometry),
                      described(editor.data(), !preserve_unknown_, log_.new_geometry));
        }
        const std::vector<bool> untouched = untouched_lines(text_, before_, editor.data());
        EXPECT_EQ(first_lost_line(text_, untouched, result.text), "");
        EXPECT_LE(whole_lines(result.text).size(), untouched.size() + room_for_new_records(before_, editor.data()));
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
