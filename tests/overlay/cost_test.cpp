// What laying one change over a large text costs, measured against parsing it.
#include <algorithm>
#include <chrono>

#include "overlay/laid_over.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

template <class Work>
double shortest_of_five(Work work) {
    double shortest = 1e9;
    for (int i = 0; i < 5; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        shortest = std::min(shortest, time.count());
    }
    return shortest;
}

std::string text_with_atoms(std::size_t count) {
    std::string text = "% maxcore 1\n! hf\n>xyz 0 1\n";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(static_cast<double>(i) / 7);
        text += "  H " + number + " -" + number + " 0.25\n";
    }
    return text + "end\n";
}

// One parse is part of it; the bound leaves as much again for the comparison and the copy, and room for the clock.
TEST(Cost, OfOneChangeIsThatOfAFewParses) {
    const std::string text = text_with_atoms(100000);
    AIPEditor editor(AIPParser::parse_string(text, overlay_schema(), {true, false}).data, overlay_schema());
    editor.set_directive("maxcore", "2");
    std::size_t atoms = 0;
    const double parsing = shortest_of_five([&] {
        atoms = AIPParser::parse_string(text, overlay_schema(), {true, false}).data.sections[0].atoms.size();
    });
    ASSERT_EQ(atoms, 100000u);
    std::string changed;
    const double laying = shortest_of_five([&] { changed = editor.render_over(text).text; });
    EXPECT_EQ(changed, "% maxcore 2" + text.substr(11));
    EXPECT_LT(laying, 3 * parsing);
}

constexpr auto small_text = "% maxcore 1\n! hf\n>scf a b\n  conv 1\nend\n";

// The small text's document with as many new records of every kind.
AIPEditor with_new_records(std::size_t count) {
    AIPEditor editor(AIPParser::parse_string(small_text, overlay_schema(), {true, false}).data, overlay_schema());
    AIPData data = editor.data();
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = "n" + std::to_string(i);
        data.directives.push_back({name, "1", false, {}});
        data.method_tokens.push_back(editor.make_method_token(name));
        data.sections[0].entries.push_back({name, "1", false, "", {}});
        data.sections[0].arguments.push_back(name);
        data.sections.push_back(editor.make_section(name, {}));
    }
    editor.set_data(std::move(data));
    return editor;
}

// Sixteen times as much takes sixteen times as long, not 256 times; the bound leaves either side a factor of four.
TEST(Cost, OfNewRecordsIsInProportionToTheirNumber) {
    const AIPEditor few = with_new_records(1000);
    const AIPEditor many = with_new_records(16000);
    EXPECT_TRUE(many.render_over(small_text).problems.empty());
    const double time_of_few = shortest_of_five([&] { few.render_over(small_text); });
    const double time_of_many = shortest_of_five([&] { many.render_over(small_text); });
    EXPECT_LT(time_of_many, 64 * time_of_few);
}

}  // namespace
}  // namespace velk::test
