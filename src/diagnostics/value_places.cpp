// Where names and values stand in their lines.
#include "diagnostics/value_places.hpp"

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp {

using core::text::take_word;
using core::text::trim_view;

NameAndValue directive_words(std::string_view line) {
    line.remove_prefix(1);
    const std::string_view name = take_word(line);
    return {name, trim_view(value_behind(line))};
}

NameAndValue entry_words(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos) {
        return {trim_view(line.substr(0, equals)), trim_view(line.substr(equals + 1))};
    }
    const std::string_view name = take_word(line);
    return {name, trim_view(value_behind(line))};
}

}  // namespace velk::input::amesp
