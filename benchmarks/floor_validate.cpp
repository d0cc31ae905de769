// The floor of validation: bare look-ups and number reading.
#include <algorithm>
#include <charconv>

#include "floor.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

bool is_in_bounds(const ValueSpec& spec, double value) {
    return (!spec.min || value >= *spec.min) && (!spec.max || value <= *spec.max);
}

template <class Number>
bool is_number(const ValueSpec& spec, const std::string& value) {
    Number number{};
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    return error == std::errc() && end == value.data() + value.size() &&
           is_in_bounds(spec, static_cast<double>(number));
}

bool is_valid(const ValueSpec& spec, const std::string& value) {
    if (spec.value_type == "integer") {
        return is_number<std::int64_t>(spec, value);
    }
    if (spec.value_type == "real") {
        return is_number<double>(spec, value);
    }
    if (spec.value_type == "boolean") {
        return value == "true" || value == "false";
    }
    return std::find(spec.allowed.begin(), spec.allowed.end(), value) != spec.allowed.end();
}

}  // namespace

std::size_t floor_validate(const AIPData& data, const FloorNames& names) {
    std::size_t invalid = 0;
    for (const Directive& directive : data.directives) {
        const auto known = names.directives.find(directive.name);
        invalid += known == names.directives.end() || !is_valid(*known->second.spec, directive.value) ? 1U : 0U;
    }
    for (const MethodToken& token : data.method_tokens) {
        invalid += names.tokens.contains(token.canonical) ? 0U : 1U;
    }
    for (const Section& section : data.sections) {
        const auto known = names.sections.find(section.name);
        if (known == names.sections.end()) {
            ++invalid;
            continue;
        }
        for (const SectionEntry& entry : section.entries) {
            const auto spec = known->second.entries.find(entry.key);
            invalid += spec == known->second.entries.end() || !is_valid(*spec->second.spec, entry.value) ? 1U : 0U;
        }
    }
    return invalid;
}

}  // namespace velk::bench
