// The types that a schema can give a value, by the words that name them.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace velk::input::amesp {

enum class ValueKind { integer, real, boolean, enumeration, unchecked };

struct ValueTypeName {
    std::string_view name;
    ValueKind kind;
};

inline constexpr std::array value_type_names = {
    ValueTypeName{"integer", ValueKind::integer}, ValueTypeName{"int", ValueKind::integer},
    ValueTypeName{"real", ValueKind::real},       ValueTypeName{"double", ValueKind::real},
    ValueTypeName{"float", ValueKind::real},      ValueTypeName{"boolean", ValueKind::boolean},
    ValueTypeName{"bool", ValueKind::boolean},    ValueTypeName{"enum", ValueKind::enumeration},
};

// Of any other word: unchecked, which every value fits.
constexpr ValueKind value_kind(std::string_view type) {
    const auto* const found = std::find_if(value_type_names.begin(), value_type_names.end(),
                                           [&](const ValueTypeName& entry) { return entry.name == type; });
    return found == value_type_names.end() ? ValueKind::unchecked : found->kind;
}

inline constexpr std::array<std::string_view, 8> boolean_words = {"on", "off", "true", "false", "yes", "no", "1", "0"};

}  // namespace velk::input::amesp
