// Atoms of XYZ text, read and written.
#include <velk/input/amesp/xyz.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "exchange/read.hpp"
#include "support/at_page_end.hpp"
#include "support/locale_guard.hpp"

namespace velk::input::amesp {
namespace {

using test::error_of;

AtomRecord atom(const std::string& symbol, double x, double y, double z) {
    AtomRecord record;
    record.symbol = symbol;
    record.x = x;
    record.y = y;
    record.z = z;
    return record;
}

struct GoodText {
    const char* name;
    std::string_view text;
    Molecule molecule;
};

const Molecule helium{{atom("He", 0, 0, 0)}, {}, {}};

const GoodText good_texts[] = {
    {"no atoms", "0\n\n", {}},
    {"no atoms and no comment line", "0", {}},
    {"one atom", "1\n\nHe 0 0 0\n", helium},
    {"no last line end", "1\n\nHe 0 0 0", helium},
    {"blank lines at the end", "1\n\nHe 0 0 0\n\n \t\n", helium},
    {"carriage returns", "1\r\ncharge=1 multiplicity=2\r\nHe 0 0 0\r\n\r\n", {helium.atoms, 1, 2}},
    {"a carriage return before the end of the text", "1\n\nHe 0 0 0\r", helium},
    {"blanks around everything", " \t+1 \n \n \tHe \t0 0  0 \n", helium},
    {"words after the coordinates", "1\n\nHe 0 0 0 0.1 0.2 0.3 # first\n", helium},
    {"any word is a symbol", "2\n\n8 1 2 3\nC13\xFF 4 5 6\n", {{atom("8", 1, 2, 3), atom("C13\xFF", 4, 5, 6)}, {}, {}}},
    {"forms of numbers",
     "3\n\nH .5 -1. +2\nH 1e1 1D-1 -1d+2\nH 0.12345678901234567 1e-300 -0\n",
     {{atom("H", 0.5, -1, 2), atom("H", 10, 0.1, -100), atom("H", 0.12345678901234567, 1e-300, -0.0)}, {}, {}}},
};

TEST(ReadXyz, GivesTheAtoms) {
    for (const GoodText& good : good_texts) {
        const test::AtPageEnd text(good.text);
        const XyzResult result = read_xyz(text.view());
        EXPECT_EQ(result, (XyzResult{good.molecule, {}, {}, 0})) << good.name;
    }
}

struct BadText {
    std::string_view text;
    const char* error;
};

const BadText bad_texts[] = {
    {"", "1:1: expected the number of atoms"},
    {"\n1\n\nHe 0 0 0\n", "1:1: expected the number of atoms"},
    {"  \n", "1:1: expected the number of atoms"},
    {"two\n\n", "1:1: expected the number of atoms"},
    {" 1 atom\n\n", "1:2: expected the number of atoms"},
    {"-1\n\n", "1:1: expected the number of atoms"},
    {"1.0\n\n", "1:1: expected the number of atoms"},
    {"99999999999999999999\n\n", "1:1: expected the number of atoms"},
    {"1", "1:1: the file ends after 0 of 1 atoms"},
    {"1\n", "1:1: the file ends after 0 of 1 atoms"},
    {"1\n\n", "2:1: the file ends after 0 of 1 atoms"},
    {"2\n\nH 0 0 0\n", "3:1: the file ends after 1 of 2 atoms"},
    {"9223372036854775807\n\nH 0 0 0\n", "3:1: the file ends after 1 of 9223372036854775807 atoms"},
    {"1\n\n\n", "3:1: expected an atom: symbol, x, y, z"},
    {"1\n\nH\n", "3:2: expected a coordinate"},
    {"1\n\nH 0 0\n", "3:6: expected a coordinate"},
    {"1\r\n\r\nH 0 0\r\n", "3:6: expected a coordinate"},
    {"1\n\nH 0 0 \n", "3:7: expected a coordinate"},
    {"1\n\n  H  0 x 0\n", "3:8: expected a coordinate"},
    {"1\n\nH 0 0,1 0\n", "3:5: expected a coordinate"},
    {"1\n\nH 0 nan 0\n", "3:5: expected a coordinate"},
    {"1\n\nH 0 0 -inf\n", "3:7: expected a coordinate"},
    {"1\n\nH 1e999 0 0\n", "3:3: expected a coordinate"},
    {"2\n\nH 0 0 0\n\nH 0 0 1\n", "4:1: expected an atom: symbol, x, y, z"},
    {"1\n\nH 0 0 0\n H 0 0 1\n", "4:2: the count says 1, but line 4 holds a further atom"},
    {"1\n\nH 0 0 0\n\n\nH 0 0 1", "6:1: the count says 1, but line 6 holds a further atom"},
    {"0\n\n1 0 0 1\n", "3:1: the count says 0, but line 3 holds a further atom"},
    {"1\n\nH 0 0 0\n the end\n", "4:2: expected the end of the file, or a further frame, after 1 atoms"},
    {"1\n\nH 0 0 0\n-1\n", "4:1: expected the end of the file, or a further frame, after 1 atoms"},
};

TEST(ReadXyz, SaysWhereTheFirstErrorIs) {
    for (const BadText& bad : bad_texts) {
        const test::AtPageEnd text(bad.text);
        EXPECT_EQ(error_of(text.view()), bad.error) << bad.text;
    }
}

TEST(WriteXyz, WritesAsManyDigitsAsANumberNeeds) {
    EXPECT_EQ(write_xyz({{atom("O", 0, -0.0, 0.1173), atom("H1", 1.0 / 3, 1e-11, -1e10)}, {}, {}}),
              "2\n\nO 0.0000000000 -0.0000000000 0.1173000000\nH1 0.3333333333333333 1e-11 -10000000000.0000000000\n");
}

TEST(WriteXyz, WritesWhatIsKnownOfChargeAndMultiplicity) {
    EXPECT_EQ(write_xyz({{}, -1, 2}), "0\ncharge=-1 multiplicity=2\n");
    EXPECT_EQ(write_xyz({{}, 1, {}}), "0\ncharge=1\n");
    EXPECT_EQ(write_xyz({{}, {}, 3}), "0\nmultiplicity=3\n");
}

TEST(WriteXyz, IsReadBackAsTheSameMolecule) {
    std::mt19937_64 random(42);
    Molecule molecule{{}, 1, 2};
    while (molecule.atoms.size() < 1000) {
        const AtomRecord next = atom("C", std::bit_cast<double>(random()), std::bit_cast<double>(random()),
                                     std::bit_cast<double>(random()));
        if (std::isnormal(next.x) && std::isnormal(next.y) && std::isnormal(next.z)) {
            molecule.atoms.push_back(next);
        }
    }
    EXPECT_EQ(read_xyz(write_xyz(molecule)), (XyzResult{molecule, {}, {}, 0}));
}

TEST(CoordinateText, IsAlwaysAText) {
    EXPECT_EQ(coordinate_text(0.5), "0.5000000000");
    EXPECT_EQ(coordinate_text(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(coordinate_text(std::numeric_limits<double>::denorm_min()), "5e-324");
    EXPECT_EQ(coordinate_text(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(Xyz, DependsOnNoLocale) {
    const std::string text = "1\ncharge=1000 multiplicity=1\nHe 1234.5000000000 0.3333333333333333 1e-11\n";
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        const XyzResult result = read_xyz(text);
        ASSERT_TRUE(result.molecule);
        EXPECT_EQ(write_xyz(*result.molecule), text) << name;
    }
}

}  // namespace
}  // namespace velk::input::amesp
