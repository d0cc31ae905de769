// Every code that an issue, a warning or a diagnostic can carry, and what to tell a user about it. Codes are stable: a
// name once given keeps its meaning.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

enum class Severity : std::int32_t { note = 10, warning = 20, error = 30 };

// Views of text that lives as long as the library.
struct CodeInfo {
    std::string_view code;
    Severity severity;  // of most findings that carry it
    std::string_view meaning;
    std::string_view bad_example;   // an input, or a command, that gives the finding; empty when none can
    std::string_view good_example;  // the same, fixed
    std::string_view remedy;
    std::string_view schema;  // as YAML, what the examples need beside the starter schema; usually empty
};

// In the order of the bytes of their codes.
VELK_AMESP_INP_EXPORT std::span<const CodeInfo> all_codes();

// Null for a code that there is not.
VELK_AMESP_INP_EXPORT const CodeInfo* find_code(std::string_view code);

// What validation, the parser and editing in place say.
namespace codes {

inline constexpr std::string_view dropped_words = "amesp.dropped_words";
inline constexpr std::string_view duplicate_section = "amesp.duplicate_section";
inline constexpr std::string_view empty_directive = "amesp.empty_directive";
inline constexpr std::string_view empty_geometry = "amesp.empty_geometry";
inline constexpr std::string_view empty_method_line = "amesp.empty_method_line";
inline constexpr std::string_view empty_section_header = "amesp.empty_section_header";
inline constexpr std::string_view invalid_multiplicity = "amesp.invalid_multiplicity";
inline constexpr std::string_view invalid_section_entry = "amesp.invalid_section_entry";
inline constexpr std::string_view invalid_value = "amesp.invalid_value";
inline constexpr std::string_view invalid_xyz_header = "amesp.invalid_xyz_header";
inline constexpr std::string_view invalid_xyz_record = "amesp.invalid_xyz_record";
inline constexpr std::string_view kept_unit = "amesp.kept_unit";
inline constexpr std::string_view loose_line = "amesp.loose_line";
inline constexpr std::string_view missing_geometry = "amesp.missing_geometry";
inline constexpr std::string_view missing_method_line = "amesp.missing_method_line";
inline constexpr std::string_view missing_required_entry = "amesp.missing_required_entry";
inline constexpr std::string_view missing_required_section = "amesp.missing_required_section";
inline constexpr std::string_view multiple_geometry_sections = "amesp.multiple_geometry_sections";
inline constexpr std::string_view multiple_method_lines = "amesp.multiple_method_lines";
inline constexpr std::string_view not_expressible = "amesp.not_expressible";
inline constexpr std::string_view not_of_this_text = "amesp.not_of_this_text";
inline constexpr std::string_view remark_in_method_line = "amesp.remark_in_method_line";
inline constexpr std::string_view unknown_directive = "amesp.unknown_directive";
inline constexpr std::string_view unknown_entry = "amesp.unknown_entry";
inline constexpr std::string_view unknown_method_token = "amesp.unknown_method_token";
inline constexpr std::string_view unknown_section = "amesp.unknown_section";
inline constexpr std::string_view unterminated_section = "amesp.unterminated_section";
inline constexpr std::string_view value_above_maximum = "amesp.value_above_maximum";
inline constexpr std::string_view value_below_minimum = "amesp.value_below_minimum";

// What tools say beyond it.
namespace inp {

inline constexpr std::string_view added_end = "amesp-inp.added_end";
inline constexpr std::string_view bad_header = "amesp-inp.bad_header";
inline constexpr std::string_view dropped_marker = "amesp-inp.dropped_marker";
inline constexpr std::string_view dropped_words = "amesp-inp.dropped_words";
inline constexpr std::string_view equals_in_directive = "amesp-inp.equals_in_directive";
inline constexpr std::string_view extra_words = "amesp-inp.extra_words";
inline constexpr std::string_view invisible_character = "amesp-inp.invisible_character";
inline constexpr std::string_view lost_atom = "amesp-inp.lost_atom";
inline constexpr std::string_view lost_line = "amesp-inp.lost_line";
inline constexpr std::string_view missing_end = "amesp-inp.missing_end";
inline constexpr std::string_view misspelt_end = "amesp-inp.misspelt_end";
inline constexpr std::string_view moved_blank_lines = "amesp-inp.moved_blank_lines";
inline constexpr std::string_view moved_line = "amesp-inp.moved_line";
inline constexpr std::string_view one_line_section = "amesp-inp.one_line_section";
inline constexpr std::string_view other_format = "amesp-inp.other_format";
inline constexpr std::string_view pasted_xyz = "amesp-inp.pasted_xyz";
inline constexpr std::string_view reads_differently = "amesp-inp.reads_differently";
inline constexpr std::string_view remark_in_value = "amesp-inp.remark_in_value";
inline constexpr std::string_view repeated_name = "amesp-inp.repeated_name";
inline constexpr std::string_view rounded = "amesp-inp.rounded";

}  // namespace inp
}  // namespace codes

}  // namespace velk::input::amesp
