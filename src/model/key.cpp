// The one normalisation of names.
#include "model/key.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

namespace velk::input::amesp {
namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), to_lower);
    return result;
}

}  // namespace

std::string normalize_key(std::string_view text) {
    return lowered(core::text::trim_view(text));
}

bool same_key(std::string_view a, std::string_view b) noexcept {
    const std::string_view left = core::text::trim_view(a);
    const std::string_view right = core::text::trim_view(b);
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](char x, char y) { return to_lower(x) == to_lower(y); });
}

Key::Key(std::string_view text) : view_(core::text::trim_view(text)) {
    if (std::any_of(view_.begin(), view_.end(), [](char c) { return to_lower(c) != c; })) {
        lowered_ = lowered(view_);
        view_ = lowered_;
    }
}

}  // namespace velk::input::amesp
