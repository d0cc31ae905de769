// Edits of the '!' method line.
#include <utility>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/editor.hpp>

#include "editor/remove_matching.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {

void AIPEditor::add_method_token(std::string token) {
    if (!core::text::trim_view(token).empty()) {
        data_.method_tokens.push_back(records::make_method_token(schema_, token));
    }
}

bool AIPEditor::remove_method_token(std::string_view token) {
    const std::string wanted = schema_.canonical_method_token(token);
    return remove_matching(data_.method_tokens, [&](const MethodToken& candidate) {
        const std::string& name = candidate.canonical.empty() ? candidate.text : candidate.canonical;
        return schema_.canonical_method_token(name) == wanted;
    });
}

void AIPEditor::set_method_tokens(const std::vector<std::string>& tokens) {
    data_.method_tokens.clear();
    data_.method_tokens.reserve(tokens.size());
    for (const std::string& token : tokens) {
        add_method_token(token);
    }
}

}  // namespace velk::input::amesp
