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

}  // namespace
}  // namespace velk::test
