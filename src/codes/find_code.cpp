// Looks a code up in the table.
#include <velk/input/amesp/codes.hpp>

#include <algorithm>

namespace velk::input::amesp {

const CodeInfo* find_code(std::string_view code) {
    const std::span<const CodeInfo> all = all_codes();
    const auto found = std::lower_bound(
        all.begin(), all.end(), code, [](const CodeInfo& info, std::string_view wanted) { return info.code < wanted; });
    return found != all.end() && found->code == code ? &*found : nullptr;
}

}  // namespace velk::input::amesp
