// What single lines read as.
#include "overlay/read_back.hpp"

#include <utility>

#include "parser/reader.hpp"

namespace velk::input::amesp::overlay {
namespace {

bool is_all_of(const AIPData& data, std::size_t directives, std::size_t tokens, std::size_t sections) {
    return data.header_comments.empty() && data.preserved_lines.empty() && data.directives.size() == directives &&
           data.method_tokens.size() == tokens && data.sections.size() == sections;
}

}  // namespace

std::optional<Directive> read_directive(std::string_view line, const InputSchema& schema) {
    AIPData data = read_document(line, schema, true);
    if (!is_all_of(data, 1, 0, 0)) {
        return std::nullopt;
    }
    return std::move(data.directives.front());
}

std::optional<MethodToken> read_method_token(std::string_view token, const InputSchema& schema) {
    AIPData data = read_document("! " + std::string(token), schema, true);
    if (!is_all_of(data, 0, 1, 0) || data.method_tokens.front().text != token) {
        return std::nullopt;
    }
    return std::move(data.method_tokens.front());
}

std::optional<Section> read_section(std::string_view header, std::string_view body_line, const InputSchema& schema) {
    std::string text(header);
    text += '\n';
    text += body_line;
    AIPData data = read_document(text, schema, true);
    if (!is_all_of(data, 0, 0, 1) || data.sections.front().terminated) {
        return std::nullopt;
    }
    return std::move(data.sections.front());
}

std::optional<Section> read_header(std::string_view header, const InputSchema& schema) {
    std::optional<Section> section = read_section(header, {}, schema);
    if (section && section->entries.empty() && section->atoms.empty() && section->raw_lines.empty()) {
        return section;
    }
    return std::nullopt;
}

}  // namespace velk::input::amesp::overlay
