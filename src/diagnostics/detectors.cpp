// The detectors, in the order in which one explains what another one finds.
#include "diagnostics/detectors.hpp"

#include <array>
#include <iterator>

namespace velk::input::amesp {
namespace {

using Detector = Detections (*)(const DetectorInput&);

constexpr std::array<Detector, 0> detectors = {};

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
