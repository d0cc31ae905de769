// The editor itself: its document, its schema, and the records it makes.
#include <velk/input/amesp/editor.hpp>

#include <utility>

#include "schema/records.hpp"

namespace velk::input::amesp {

AIPEditor::AIPEditor(AIPData data, const InputSchema& schema) : data_(std::move(data)), schema_(schema) {}

void AIPEditor::set_data(AIPData data) {
    data_ = std::move(data);
    directive_places_.clear();
}

MethodToken AIPEditor::make_method_token(std::string token) const {
    return records::make_method_token(schema_, token);
}

Section AIPEditor::make_section(std::string name, std::vector<std::string> arguments) const {
    return records::make_section(schema_, name, std::move(arguments));
}

std::vector<ValidationIssue> AIPEditor::validate() const {
    return schema_.validate(data_);
}

}  // namespace velk::input::amesp
