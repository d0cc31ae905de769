// XYZ text of several frames.
#include <gtest/gtest.h>

#include "exchange/read.hpp"

namespace velk::input::amesp {
namespace {

using test::error_of;

const std::string three =
    "1\nfirst\nH 0 0 1\n"
    "2\ncharge=1 multiplicity=2\nH 0 0 2\nH 0 0 3\n"
    "\n \n"
    "1\r\nthird\r\nH 0 0 4\r\n\r\n";

std::vector<double> heights(std::string_view text, std::uint64_t frame) {
    std::vector<double> list;
    const XyzResult result = read_xyz(text, {frame});
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_EQ(result.frames_to_choose_from, 0U);
    for (const AtomRecord& atom : result.molecule->atoms) {
        list.push_back(atom.z);
    }
    return list;
}

TEST(Frames, AreChosenByNumber) {
    EXPECT_EQ(heights(three, 1), (std::vector{1.0}));
    EXPECT_EQ(heights(three, 2), (std::vector{2.0, 3.0}));
    EXPECT_EQ(heights(three, 3), (std::vector{4.0}));
    EXPECT_EQ(heights(three, XyzOptions::last_frame), (std::vector{4.0}));
}

TEST(Frames, NeedNoChoiceWhereThereIsOne) {
    for (const std::uint64_t frame : {XyzOptions::only_frame, std::uint64_t{1}, XyzOptions::last_frame}) {
        EXPECT_EQ(heights("1\n\nH 0 0 1\n\n", frame), (std::vector{1.0}));
    }
}

TEST(Frames, KeepTheirCommentLinesApart) {
    EXPECT_EQ(read_xyz(three, {1}).molecule->charge, std::nullopt);
    EXPECT_EQ(read_xyz(three, {2}).molecule->charge, 1);
    EXPECT_EQ(read_xyz(three, {3}).molecule->multiplicity, std::nullopt);
    const std::string lone = "0\nspin=1\n0\ncharge=1\n0\n\n";
    EXPECT_EQ(read_xyz(lone, {1}).notes.size(), 1U);
    EXPECT_EQ(read_xyz(lone, {2}).notes.size(), 1U);
    EXPECT_EQ(read_xyz(lone, {2}).notes.at(0).line, 4U);
    EXPECT_EQ(read_xyz(lone, {3}).notes.size(), 0U);
}

TEST(Frames, AreCountedWhereNoneWasChosen) {
    EXPECT_EQ(error_of(three), "4:1: the file holds 3 frames, and none of them was chosen");
    EXPECT_EQ(read_xyz(three).frames_to_choose_from, 3U);
    EXPECT_EQ(read_xyz("0\n\n\n0\n\n").frames_to_choose_from, 2U);
    EXPECT_EQ(error_of("0\n\n\n0\n\n"), "4:1: the file holds 2 frames, and none of them was chosen");
}

TEST(Frames, AreMissedByNumber) {
    EXPECT_EQ(error_of(three, 4), "13:1: there is no frame 4: the file holds 3 frames");
    EXPECT_EQ(error_of("1\n\nH 0 0 1\n", 2), "3:1: there is no frame 2: the file holds 1 frame");
    EXPECT_EQ(read_xyz(three, {4}).frames_to_choose_from, 0U);
}

TEST(Frames, HaveToBeWithoutErrorUpToTheChosenOne) {
    const std::string bad = "1\n\nH 0 0 1\n2\n\nH 0 0 x\nH 0 0 3\n1\n\nH 0 0 4\n";
    EXPECT_EQ(error_of(bad, 1), "none");
    EXPECT_EQ(error_of(bad, 2), "6:7: expected a coordinate");
    EXPECT_EQ(error_of(bad, 3), "6:7: expected a coordinate");
    EXPECT_EQ(error_of(bad), "6:7: expected a coordinate");
    EXPECT_EQ(read_xyz(bad).frames_to_choose_from, 0U);
}

TEST(Frames, EndWhereTheirCountSays) {
    const std::string longer = "1\n\nH 0 0 1\n1\n\nH 0 0 2\nH 0 0 3\n1\n\nH 0 0 4\n";
    EXPECT_EQ(error_of(longer, 1), "none");
    EXPECT_EQ(error_of(longer, 2), "7:1: the count says 1, but line 7 holds a further atom");
    EXPECT_EQ(error_of(longer, XyzOptions::last_frame), "7:1: the count says 1, but line 7 holds a further atom");
    EXPECT_EQ(error_of("0\n\n3\n\nH 0 0 1\n", 2), "5:1: the file ends after 1 of 3 atoms");
}

}  // namespace
}  // namespace velk::input::amesp
