// What stands after the name in a header of a section of entries.
#include "diagnostics/header_entries.hpp"

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

// Every known name that has no value to give begins an entry.
std::vector<std::string_view> split_entries(std::string_view words, std::string_view section,
                                            const InputSchema& schema) {
    std::vector<std::string_view> entries;
    bool has_value = true;
    std::string_view rest = words;
    for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
        const std::string_view name = word.substr(0, word.find('='));
        const auto at = static_cast<std::size_t>(word.data() - words.data());
        if (has_value && schema.is_known_entry(section, name)) {
            entries.push_back(words.substr(at));
            has_value = name.size() + 1 < word.size();
        } else if (entries.empty()) {
            return {};
        } else {
            has_value = has_value || word != "=";
        }
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::size_t size = i + 1 < entries.size()
                                     ? static_cast<std::size_t>(entries[i + 1].data() - entries[i].data())
                                     : entries[i].size();
        entries[i] = trim_view(entries[i].substr(0, size));
    }
    return entries;
}

std::string_view last_word(std::string_view words) {
    std::size_t begin = words.size();
    while (begin > 0 && !core::text::is_space(words[begin - 1])) {
        --begin;
    }
    return words.substr(begin);
}

}  // namespace

HeaderEntries split_header(std::string_view header, const InputSchema& schema) {
    HeaderEntries found;
    std::string_view rest = header.substr(1);
    found.name = take_word(rest);
    found.words = trim_view(rest);
    const std::string_view last = last_word(found.words);
    found.has_end = is_section_end(last);
    const std::size_t end = found.has_end ? last.size() : 0;
    found.entries = split_entries(trim_view(found.words.substr(0, found.words.size() - end)), found.name, schema);
    return found;
}

bool is_one_line_section(std::string_view header, const InputSchema& schema) {
    if (!is_section_end(last_word(header))) {
        return false;
    }
    const std::string_view name = split_header(header, schema).name;
    return schema.is_known_section(name) && schema.section_parse_mode(name) == SectionParseMode::key_value;
}

}  // namespace velk::input::amesp
