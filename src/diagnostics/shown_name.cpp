// Names in messages.
#include "diagnostics/shown_name.hpp"

#include <cstddef>

#include "model/utf8.hpp"

namespace velk::input::amesp {

std::string shown_name(std::string_view name) {
    constexpr std::size_t most_characters = 80;
    std::size_t size = 0;
    for (std::size_t count = 0; count < most_characters && size < name.size(); ++count) {
        size += first_character(name.substr(size)).bytes;
    }
    std::string shown = "'";
    shown += name.substr(0, size);
    shown += size < name.size() ? "...'" : "'";
    return shown;
}

}  // namespace velk::input::amesp
