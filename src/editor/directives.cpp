// Edits of '%' directives.
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {

void AIPEditor::set_directive(std::string name, std::string value) {
    Directive made = records::make_directive(schema_, name, value);
    if (Directive* const directive = data_.find_directive(made.name)) {
        made.location = directive->location;
        *directive = std::move(made);
    } else {
        data_.directives.push_back(std::move(made));
    }
}

bool AIPEditor::remove_directive(std::string_view name) {
    const std::string wanted = schema_.canonical_directive(name);
    return remove_matching(data_.directives, [&](const Directive& directive) {
        return schema_.canonical_directive(directive.name) == wanted;
    });
}

}  // namespace velk::input::amesp
