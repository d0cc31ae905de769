// Remarks after values.
#include "in_place/remarks.hpp"

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"

namespace velk::input::amesp::in_place {

std::string_view remark_of(std::string_view value) {
    std::string_view rest = value;
    for (std::string_view word = core::text::take_word(rest); !word.empty(); word = core::text::take_word(rest)) {
        if (classify(word) == LineKind::comment) {
            return value.substr(static_cast<std::size_t>(word.data() - value.data()));
        }
    }
    return {};
}

}  // namespace velk::input::amesp::in_place
