// What rendering repairs.
#include "formatting/changes.hpp"

namespace velk::input::amesp::formatting {
namespace {

bool is_marker_alone(std::string_view code) {
    return code == codes::empty_directive || code == codes::empty_method_line || code == codes::empty_section_header;
}

}  // namespace

void add_repairs(Changes& changes, const AIPData& data) {
    for (const ParseWarning& warning : data.warnings) {
        if (warning.code == codes::unterminated_section) {
            changes.lose(warning.location, codes::inp::added_end, "The missing 'end' of this section would be added.");
        } else if (warning.code == codes::multiple_method_lines) {
            changes.note(warning.location, codes::inp::moved_line,
                         "This method line would be joined to the first one.");
        } else if (is_marker_alone(warning.code)) {
            changes.lose(warning.location, codes::inp::dropped_marker, "This line holds a marker alone and would go.");
        } else if (warning.code == codes::loose_line || warning.code == codes::invalid_xyz_record) {
            changes.lose(warning.location, codes::inp::lost_line, "This line is not read as part of the input.");
        }
    }
}

}  // namespace velk::input::amesp::formatting
