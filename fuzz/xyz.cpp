// Any bytes as XYZ text, and any frame of it.
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <velk/input/amesp/xyz.hpp>

#include "law.hpp"
#include "run.hpp"

namespace velk::fuzz {
namespace {

using namespace input::amesp;

void check_place(const XyzMessage& message, std::string_view text) {
    std::uint64_t at_line = 1;
    while (at_line < message.line && text.find('\n') != std::string_view::npos) {
        text.remove_prefix(text.find('\n') + 1);
        ++at_line;
    }
    require(at_line == message.line, "the line of a message is in the text", message.message);
    const std::size_t size = std::min(text.find('\n'), text.size());
    require(message.column >= 1 && message.column <= size + 1, "the column of a message is in its line",
            message.message);
}

bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void check_round_trip(const Molecule& molecule) {
    const std::string written = write_xyz(molecule);
    const XyzResult again = read_xyz(written);
    require(again.molecule.has_value() && again.notes.empty(), "what is written reads back", written);
    require(*again.molecule == molecule, "it is the same molecule", written);
    for (std::size_t i = 0; i < molecule.atoms.size(); ++i) {
        const AtomRecord& before = molecule.atoms[i];
        const AtomRecord& after = again.molecule->atoms[i];
        require(same_bits(before.x, after.x) && same_bits(before.y, after.y) && same_bits(before.z, after.z),
                "coordinates come back bit for bit", written);
    }
}

// Whether a frame was read.
bool check(std::string_view text, std::uint64_t frame) {
    const XyzResult result = read_xyz(text, {frame});
    require(result.molecule.has_value() != result.error.has_value(), "there is an error or a molecule");
    for (const XyzMessage& note : result.notes) {
        check_place(note, text);
    }
    if (result.error) {
        check_place(*result.error, text);
    } else {
        require(result.molecule->charge.has_value() == result.molecule->multiplicity.has_value(),
                "charge and multiplicity are taken together");
        check_round_trip(*result.molecule);
    }
    return !result.error;
}

}  // namespace

void run(const std::string& input) {
    const bool only = check(input, XyzOptions::only_frame);
    const bool last = check(input, XyzOptions::last_frame);
    const std::uint64_t frames = read_xyz(input).frames_to_choose_from;
    require(last == (only || frames > 1), "the last of several frames can be chosen");
    require(!last || check(input, std::max<std::uint64_t>(1, frames)), "the last frame has a number");
    require(!last || !check(input, frames + 2), "there is no frame after the last one");
    check(input, 1);
}

}  // namespace velk::fuzz
