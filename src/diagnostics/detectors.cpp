// The detectors, in the order in which one explains what another one finds.
#include "diagnostics/detectors.hpp"

#include <array>
#include <iterator>

#include "diagnostics/bad_header.hpp"
#include "diagnostics/equals_in_directive.hpp"
#include "diagnostics/extra_words.hpp"
#include "diagnostics/invisible_characters.hpp"
#include "diagnostics/lost_atoms.hpp"
#include "diagnostics/missing_end.hpp"
#include "diagnostics/misspelt_end.hpp"
#include "diagnostics/one_line_section.hpp"
#include "diagnostics/pasted_xyz.hpp"
#include "diagnostics/remark_in_value.hpp"
#include "diagnostics/repeated_name.hpp"

namespace velk::input::amesp {
namespace {

using Detector = Detections (*)(const DetectorInput&);

constexpr auto detectors = std::to_array<Detector>({
    find_invisible_characters,
    find_misspelt_ends,
    find_missing_ends,
    find_one_line_sections,
    find_pasted_xyz,
    find_bad_headers,
    find_lost_atoms,
    find_extra_words,
    find_equals_in_directives,
    find_remarks_in_values,
    find_repeated_names,
});

}  // namespace

Detections detect(const DetectorInput& input) {
    Detections all;
    for (const Detector detector : detectors) {
        Detections found = detector(input);
        all.insert(all.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
    }
    return all;
}

}  // namespace velk::input::amesp
