// Edits of '%' directives.
#include <functional>
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "model/key.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {
namespace {

// Numbers are compared faster than names: the hash comes first.
std::pair<std::size_t, std::string> key_of(std::string_view name) {
    std::string key = normalize_key(name);
    const std::size_t hash = std::hash<std::string>()(key);
    return {hash, std::move(key)};
}

std::map<std::pair<std::size_t, std::string>, std::size_t> first_places(const std::vector<Directive>& directives) {
    std::map<std::pair<std::size_t, std::string>, std::size_t> places;
    std::size_t place = 0;
    for (const Directive& directive : directives) {
        places.emplace(key_of(directive.name), place++);
    }
    return places;
}

}  // namespace

void AIPEditor::set_directive(std::string name, std::string value) {
    Directive made = records::make_directive(schema_, name, value);
    std::vector<Directive>& directives = data_.directives;
    if (directive_places_.empty()) {
        directive_places_ = first_places(directives);
    }
    auto key = key_of(made.name);
    if (const auto found = directive_places_.find(key); found != directive_places_.end()) {
        Directive& directive = directives[found->second];
        made.location = directive.location;
        directive = std::move(made);
        return;
    }
    if (directives.size() == directives.capacity()) {
        directives.reserve(2 * directives.size() + 1);  // what may fail comes before the first change
    }
    directive_places_.emplace(std::move(key), directives.size());
    directives.push_back(std::move(made));
}

bool AIPEditor::remove_directive(std::string_view name) {
    const std::string wanted = schema_.canonical_directive(name);
    directive_places_.clear();
    return remove_matching(data_.directives, [&](const Directive& directive) {
        return schema_.canonical_directive(directive.name) == wanted;
    });
}

}  // namespace velk::input::amesp
