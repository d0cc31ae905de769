// Reals read where they stand on a line, against the same words read alone.
#include "model/real_words.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

#include "support/at_page_end.hpp"

namespace velk::input::amesp {
namespace {

constexpr const char* words[] = {"0",
                                 "-0.0",
                                 "12.3456789012",
                                 "-1.5",
                                 "+.5",
                                 "1.",
                                 "7",
                                 "12345678.",
                                 "1.5D-3",
                                 "2e5",
                                 "1e999",
                                 "0x10",
                                 "nan",
                                 "-inf",
                                 "1.2.3",
                                 "1,5",
                                 "x",
                                 "+-1",
                                 "--",
                                 ".",
                                 "5e-324",
                                 "0.1234567",
                                 "1234567",
                                 "0.12345678901",
                                 "1e",
                                 "12.5abc",
                                 "1.5;",
                                 "1.5#",
                                 "9999999.99999999",
                                 "0.3000000000000000444",
                                 "-123.4567890123456",
                                 "00012.50"};

void expect_same_words(const std::string& line, const std::string& after) {
    const std::string text = line + after;
    std::string_view left = std::string_view(text).substr(0, line.size());
    RealWords reals(left, text.data() + text.size());
    RealWords plain(left, text.data() + text.size());
    while (!left.empty()) {
        const std::string_view word = core::text::take_word(left);
        const std::optional<double> expected = read_real(word);
        double value = 8.0;
        ASSERT_EQ(reals.take_real(value), expected.has_value()) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected.value_or(8.0))) << text;
        ASSERT_EQ(plain.take_word(), word) << text;
    }
    double value = 8.0;
    EXPECT_FALSE(reals.take_real(value)) << text;
    EXPECT_TRUE(plain.take_word().empty());
}

TEST(RealWords, ReadEachWordAsItReadsAlone) {
    std::mt19937_64 random(24);
    constexpr std::string_view blanks = " \t\v\f\r\n";
    for (int i = 0; i < 300000; ++i) {
        std::string line;
        for (std::size_t n = random() % 5; n > 0; --n) {
            line +=
                std::string(1 + random() % 3, blanks[random() % blanks.size()]) + words[random() % std::size(words)];
        }
        expect_same_words(line + (i % 3 == 0 ? " " : ""), "");
        expect_same_words(line, i % 2 == 0 ? "5 and what can be read" : "\nH 1.0 2.0 3.0\n");
    }
}

TEST(RealWords, EndWithTheTextAndNotWithWhatIsReadable) {
    const std::string text = "1.25 2.5678 and more that can be read";
    RealWords reals(std::string_view(text).substr(0, 8), text.data() + text.size());  // "1.25 2.5"
    double value = 0.0;
    EXPECT_TRUE(reals.take_real(value));
    EXPECT_EQ(value, 1.25);
    EXPECT_TRUE(reals.take_real(value));
    EXPECT_EQ(value, 2.5);
    EXPECT_FALSE(reals.take_real(value));
}

TEST(RealWords, ReadNothingThatCannotBeRead) {
    for (const std::string digits :
         {"1234567890123456789012345", "-1234567.89012345678901234", "1.5", "-123456.7890123 "}) {
        for (std::size_t size = digits.find_first_of('1') + 1; size <= digits.size(); ++size) {
            const test::AtPageEnd text(digits.substr(0, size));
            RealWords reals(text.view(), text.view().data() + size);
            double value = 0.0;
            EXPECT_TRUE(reals.take_real(value)) << text.view();
            EXPECT_EQ(value, read_real(digits.substr(0, size))) << text.view();
            EXPECT_FALSE(reals.take_real(value)) << text.view();
        }
    }
}

}  // namespace
}  // namespace velk::input::amesp
