// Where values stand in their lines.
#include "diagnostics/value_places.hpp"

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp {

using core::text::take_word;
using core::text::trim_view;

DirectiveWords directive_words(std::string_view line) {
    line.remove_prefix(1);
    const std::string_view name = take_word(line);
    return {name, trim_view(value_behind(line))};
}

std::string_view entry_value(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos) {
        return trim_view(line.substr(equals + 1));
    }
    take_word(line);
    return trim_view(value_behind(line));
}

}  // namespace velk::input::amesp
