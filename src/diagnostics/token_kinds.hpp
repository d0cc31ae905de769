// Tokens that say which calculation it is.
#pragma once

#include <string_view>

#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

// What a known token names when another one of its kind is another calculation: "functional", "basis set" or
// "dispersion correction"; empty for all others.
inline std::string_view kind_of_calculation(const InputSchema& schema, std::string_view token) {
    const std::string category = schema.method_token_category(token);
    if (category == "method") {
        return "functional";
    }
    if (category == "basis" || category == "auxiliary_basis") {
        return "basis set";
    }
    return category == "dispersion" ? "dispersion correction" : "";
}

}  // namespace velk::input::amesp
