// Telling the line ends of one text and giving them to another.
#include "line_ends.hpp"

#include <algorithm>

namespace amesp_inp {
namespace {

bool has_mostly_crlf(std::string_view text) {
    const auto lines = std::count(text.begin(), text.end(), '\n');
    std::ptrdiff_t with_return = 0;
    for (std::size_t at = text.find("\r\n"); at != std::string_view::npos; at = text.find("\r\n", at + 2)) {
        ++with_return;
    }
    return with_return > lines - with_return;
}

}  // namespace

std::string with_line_ends_of(std::string_view model, std::string text) {
    if (!has_mostly_crlf(model)) {
        return text;
    }
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        result += c == '\n' ? "\r\n" : std::string_view(&c, 1);
    }
    return result;
}

}  // namespace amesp_inp
