// What single lines read as.
#include "in_place/read_back.hpp"

#include <utility>

#include "parser/reader.hpp"

namespace velk::input::amesp::in_place {

std::optional<Directive> read_directive(std::string_view line, const InputSchema& schema) {
    AIPData data = read_document(line, schema, true);
    if (data.directives.empty()) {
        return std::nullopt;
    }
    return std::move(data.directives.front());
}

std::optional<MethodToken> read_method_token(std::string_view token, const InputSchema& schema) {
    AIPData data = read_document("! " + std::string(token), schema, true);
    if (data.method_tokens.empty() || data.method_tokens.front().text != token) {
        return std::nullopt;
    }
    return std::move(data.method_tokens.front());
}

std::optional<Section> read_section(std::string_view header, std::string_view body_line, const InputSchema& schema) {
    std::string text(header);
    text += '\n';
    text += body_line;
    AIPData data = read_document(text, schema, true);
    if (data.sections.empty() || data.sections.front().terminated) {
        return std::nullopt;
    }
    return std::move(data.sections.front());
}

}  // namespace velk::input::amesp::in_place
