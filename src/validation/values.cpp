// The check of one value: its type, then its bounds.
#include "validation/values.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "model/key.hpp"
#include "model/numbers.hpp"
#include "model/value_types.hpp"

namespace velk::input::amesp {
namespace {

std::optional<double> read_number(ValueKind kind, std::string_view value) {
    if (kind == ValueKind::integer) {
        const std::optional<std::int64_t> number = read_int64(value);
        return number ? std::optional(static_cast<double>(*number)) : std::nullopt;
    }
    const std::optional<double> number = read_real(value);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

bool is_boolean(std::string_view value) {
    const Key key(value);
    return std::find(boolean_words.begin(), boolean_words.end(), key.view()) != boolean_words.end();
}

bool is_allowed(const ValueSpec& spec, std::string_view value) {
    const Key key(value);
    return std::find(spec.allowed.begin(), spec.allowed.end(), key.view()) != spec.allowed.end();
}

std::vector<ValidationIssue> check_bounds(const ValueSpec& spec, double number, const issues::Subject& subject,
                                          const issues::Location& location) {
    std::vector<ValidationIssue> found;
    if (spec.min && *spec.min > number) {
        found.push_back(issues::value_below_minimum(subject, *spec.min, location));
    }
    if (spec.max && number > *spec.max) {
        found.push_back(issues::value_above_maximum(subject, *spec.max, location));
    }
    return found;
}

}  // namespace

std::vector<ValidationIssue> check_value(const ValueSpec& spec, const std::string& value,
                                         const issues::Subject& subject, const issues::Location& location) {
    const auto invalid = [&] { return std::vector{issues::invalid_value(subject, spec.value_type, value, location)}; };
    const ValueKind kind = value_kind(spec.value_type);
    switch (kind) {
        case ValueKind::integer:
        case ValueKind::real: {
            const std::optional<double> number = read_number(kind, value);
            return number ? check_bounds(spec, *number, subject, location) : invalid();
        }
        case ValueKind::boolean:
            return is_boolean(value) ? std::vector<ValidationIssue>() : invalid();
        case ValueKind::enumeration:
            return is_allowed(spec, value) ? std::vector<ValidationIssue>() : invalid();
        case ValueKind::unchecked:
            break;
    }
    return {};
}

}  // namespace velk::input::amesp
