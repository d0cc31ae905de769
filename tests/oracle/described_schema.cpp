// The description of a schema, for the report of a difference.
#include <optional>

#include "oracle/described.hpp"
#include "oracle/plain_numbers.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

std::string described(const StringMap<std::string>& aliases) {
    std::string text;
    for (const auto& [alias, target] : aliases) {
        text += quoted(alias) + " ->" + quoted(target) + ";";
    }
    return text + "\n";
}

std::string bound(const char* label, const std::optional<double>& value) {
    return value ? label + with_six_decimals(*value) + " (bits" + bits(*value) + ")" : "";
}

std::string described(const ValueSpec& spec) {
    std::string text = quoted(spec.name) + " type" + quoted(spec.value_type) + bound(" min ", spec.min) +
                       bound(" max ", spec.max) + (spec.required ? " required" : "");
    for (const std::string& word : spec.allowed) {
        text += " allows" + quoted(word);
    }
    return text + "\n";
}

}  // namespace

std::string described(const InputSchema::Impl& tables) {
    std::string text;
    for (const auto& [name, spec] : tables.directives) {
        text += "directive" + quoted(name) + ":" + described(spec);
    }
    text += "directive aliases:" + described(tables.directive_aliases);
    for (const auto& [name, spec] : tables.method_tokens) {
        text += "token" + quoted(name) + ":" + quoted(spec.name) + " category" + quoted(spec.category) + "\n";
    }
    text += "token aliases:" + described(tables.method_token_aliases);
    for (const auto& prefix : tables.method_prefixes) {
        text += "prefix" + quoted(prefix.prefix) + quoted(prefix.category) + " of" +
                quoted(prefix.applies_to_category) + "\n";
    }
    for (const auto& [name, spec] : tables.sections) {
        text += "section" + quoted(name) + ":" + quoted(spec.name) + " mode " +
                std::to_string(static_cast<int>(spec.parse_mode)) + (spec.required ? " required" : "") +
                (spec.allow_multiple ? "" : " once") + "\n  entry aliases:" + described(spec.entry_aliases);
        for (const auto& [entry, value] : spec.entries) {
            text += "  entry" + quoted(entry) + ":" + described(value);
        }
    }
    return text + "section aliases:" + described(tables.section_aliases);
}

}  // namespace velk::oracle
