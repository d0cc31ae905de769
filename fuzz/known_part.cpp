// What is left of a document when the unknown is dropped.
#include "known_part.hpp"

#include <string>
#include <vector>
#include <velk/core/text.hpp>

namespace velk::fuzz {
namespace {

using namespace input::amesp;

bool is_comment(const std::string& line) {
    const std::string text = core::text::trim(line);
    return text.substr(0, 1) == "#" || text.substr(0, 1) == ";" || text.substr(0, 2) == "//";
}

}  // namespace

AIPData known_part(AIPData data) {
    const auto unknown = [](const auto& record) { return !record.known; };
    std::erase_if(data.directives, unknown);
    std::erase_if(data.method_tokens, unknown);
    std::erase_if(data.sections, unknown);
    for (Section& section : data.sections) {
        std::erase_if(section.entries, unknown);
        std::erase_if(section.raw_lines, [](const std::string& line) { return core::text::trim(line).empty(); });
    }
    std::erase_if(data.preserved_lines, [](const std::string& line) { return !is_comment(line); });
    data.warnings.clear();
    return data;
}

}  // namespace velk::fuzz
