// Edits of a text.
#include <velk/input/amesp/text_edit.hpp>

#include <stdexcept>

namespace velk::input::amesp {
namespace {

// The size of the edited text. Overflow cannot hide an edit outside the text: nothing is added before it is compared.
std::size_t edited_size(std::string_view original, const std::vector<TextEdit>& edits) {
    std::uint64_t done = 0;  // up to here the original is used up
    std::uint64_t size = original.size();
    for (const TextEdit& edit : edits) {
        if (edit.offset < done || edit.offset > original.size() || edit.length > original.size() - edit.offset) {
            throw std::invalid_argument("text edits must be sorted, must not overlap, and must lie in the text");
        }
        done = edit.offset + edit.length;
        size = size - edit.length + edit.text.size();
    }
    return static_cast<std::size_t>(size);
}

}  // namespace

std::string apply(std::string_view original, const std::vector<TextEdit>& edits) {
    std::string result;
    result.reserve(edited_size(original, edits));
    std::size_t done = 0;
    for (const TextEdit& edit : edits) {
        const auto offset = static_cast<std::size_t>(edit.offset);
        result += original.substr(done, offset - done);
        result += edit.text;
        done = offset + static_cast<std::size_t>(edit.length);
    }
    result += original.substr(done);
    return result;
}

}  // namespace velk::input::amesp
