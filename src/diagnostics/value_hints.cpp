// What a value may be.
#include "diagnostics/value_hints.hpp"

#include "model/value_types.hpp"

namespace velk::input::amesp {
namespace {

template <class Words>
std::string list_of(const Words& words) {
    std::string text = "allowed values: ";
    for (const auto& word : words) {
        text += &word == &words.front() ? "" : ", ";
        text += word;
    }
    return text;
}

}  // namespace

std::string allowed_values(const ValueSpec& spec) {
    const ValueKind kind = value_kind(spec.value_type);
    if (kind == ValueKind::boolean) {
        return list_of(boolean_words);
    }
    if (kind != ValueKind::enumeration) {
        return {};
    }
    return spec.allowed.empty() ? "the schema allows no value at all" : list_of(spec.allowed);
}

}  // namespace velk::input::amesp
