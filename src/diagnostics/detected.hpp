// What the text itself shows to be wrong, beyond what parser and rules can see; and what follows from it.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>

#include "in_place/line_table.hpp"

namespace velk::input::amesp {

// Views; all of them outlive the detectors. The document was read from the text, the unknown preserved.
struct DetectorInput {
    const TextPositions& text;
    const LineTable& lines;
    const AIPData& document;
    const SchemaSource& schema;
};

// Bytes of the text.
struct Extent {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
};

struct Detected {
    Diagnostic diagnostic;
    // What other findings begin in these follows from this one, but for those on the document as a whole.
    std::vector<Extent> covers;
    // So do findings of these codes wherever they stand: something is missing because of this.
    std::vector<std::string_view> explains;
};

using Detections = std::vector<Detected>;

}  // namespace velk::input::amesp
