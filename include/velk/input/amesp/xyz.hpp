// Reads and writes XYZ text: a line with the number of atoms, a comment line, then one line for each atom. Several such
// frames may follow each other.
//
// Provisional until version 1.0. All functions are free of state, may run on any number of threads, and throw nothing
// but std::bad_alloc; time and memory are proportional to the text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// One frame.
struct Molecule {
    std::vector<AtomRecord> atoms;             // those that `read_xyz` makes have neither raw lines nor locations
    std::optional<std::int32_t> charge;        // in the comment line, as "charge=0"
    std::optional<std::int32_t> multiplicity;  // there, as "multiplicity=1" or "spin=1", which mean the same

    bool operator==(const Molecule&) const = default;
};

struct XyzOptions {
    static constexpr std::uint64_t only_frame = 0;           // the text has to hold exactly one
    static constexpr std::uint64_t last_frame = UINT64_MAX;  // however many there are

    std::uint64_t frame = only_frame;  // one of these, or the number of a frame, from 1

    bool operator==(const XyzOptions&) const = default;
};

// What is said of a place in the text. Lines and columns count from 1, columns in bytes.
struct XyzMessage {
    std::uint64_t line = 1;
    std::uint64_t column = 1;
    std::string message;

    bool operator==(const XyzMessage&) const = default;
};

struct XyzResult {
    std::optional<Molecule> molecule;         // absent exactly when there is an error
    std::optional<XyzMessage> error;          // the first one
    std::vector<XyzMessage> notes;            // of what stands in the chosen frame and was not taken
    std::uint64_t frames_to_choose_from = 0;  // how many there are, when the error is that none of several was chosen

    bool operator==(const XyzResult&) const = default;
};

// Reads one frame of `text`.
//
// - Frames up to the chosen one are read and have to be without error; of what follows it only the next line that is
//   not blank, which has to be the first one of a frame. Blank lines between frames and at the end mean nothing.
// - An atom is a symbol and three finite numbers, separated by white space; exponents may be written with D. What
//   follows on the line is ignored. Lines end with a line feed, or a carriage return and a line feed.
// - In the comment line, text of the form KEY=VALUE is looked at, as in extended XYZ: keys in any case, blanks around
//   the '=', keys and values in double quotes. Charge and multiplicity are taken together: a note says when only one of
//   them is given. It is an error when one of them is no integer or is given twice and differently, and when
//   "Properties" says that atoms do not begin with symbol and position, "species:S:1:pos:R:3". What other keys say, and
//   the rest of the line, is ignored.
VELK_AMESP_INP_EXPORT XyzResult read_xyz(std::string_view text, const XyzOptions& options = {});

// One frame as text, with charge and multiplicity, as far as they are known, in its comment line. Coordinates are
// written by `coordinate_text`. It reads back as the same molecule where charge and multiplicity are both known or both
// not, symbols are words, and coordinates are such as reading takes.
VELK_AMESP_INP_EXPORT std::string write_xyz(const Molecule& molecule);

// A coordinate with ten decimals when these read back to the same bits, else the shortest text that does, such as
// "0.3333333333333333" or "1e-11".
VELK_AMESP_INP_EXPORT std::string coordinate_text(double value);

}  // namespace velk::input::amesp
