// Any bytes as an XYZ file of the program.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "law.hpp"
#include "run.hpp"
#include "xyz_file.hpp"

namespace velk::fuzz {
namespace {

using namespace amesp_inp;

std::uint64_t number_before_colon(std::string_view& rest) {
    std::uint64_t number = 0;
    std::size_t digits = 0;
    while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') {
        number = number * 10 + static_cast<std::uint64_t>(rest[digits++] - '0');
    }
    require(digits > 0 && digits < rest.size() && rest[digits] == ':', "a place is a number and a colon");
    rest.remove_prefix(digits + 1);
    return number;
}

void check_message(std::string_view message, std::string_view text) {
    constexpr std::string_view name = "file.xyz:";
    require(message.starts_with(name), "an error names the file");
    std::string_view rest = message.substr(name.size());
    const std::uint64_t line = number_before_colon(rest);
    const std::uint64_t column = number_before_colon(rest);
    require(rest.starts_with(" error: "), "a place is followed by the error", std::string(message));
    std::uint64_t at_line = 1;
    while (at_line < line && text.find('\n') != std::string_view::npos) {
        text.remove_prefix(text.find('\n') + 1);
        ++at_line;
    }
    require(at_line == line, "the line of an error is in the file", std::string(message));
    const std::size_t size = std::min(text.find('\n'), text.size());
    require(column >= 1 && column <= size + 1, "the column of an error is in its line", std::string(message));
}

}  // namespace

void run(const std::string& input) {
    Molecule molecule;
    try {
        molecule = read_xyz(input, "file.xyz");
    } catch (const XyzError& error) {
        check_message(error.what(), input);
        return;
    }
    const std::string once = write_xyz(molecule);
    const Molecule again = read_xyz(once, "written.xyz");
    require(again.atoms.size() == molecule.atoms.size(), "as many atoms come back", once);
    require(again.charge == molecule.charge && again.multiplicity == molecule.multiplicity,
            "charge and multiplicity come back", once);
    for (std::size_t i = 0; i < again.atoms.size(); ++i) {
        require(again.atoms[i].symbol == molecule.atoms[i].symbol, "symbols come back", once);
    }
    require(write_xyz(again) == once, "what was read again is written as before", once);
}

}  // namespace velk::fuzz
