// Remarks after values, which the format reads as part of them.
#include "diagnostics/value_remarks.hpp"

#include <cstddef>
#include <string>

#include <velk/core/text_view.hpp>

#include "parser/line.hpp"
#include "validation/values.hpp"

namespace velk::input::amesp {
namespace {

// Where the next mark of a remark stands; the size of the value when there is none.
std::size_t next_mark(std::string_view value, std::size_t at) {
    while (at < value.size() && classify(value.substr(at)) != LineKind::comment) {
        ++at;
    }
    return at;
}

}  // namespace

bool is_value(const ValueSpec& spec, std::string_view value) {
    return check_value(spec, std::string(value), {spec.name, {}}, {}).empty();
}

std::string_view value_before_remark(const ValueSpec& spec, std::string_view value) {
    const std::size_t mark = next_mark(value, 0);
    const std::string_view before = core::text::trim_view(value.substr(0, mark));
    const bool has_remark = mark < value.size() && !before.empty();
    return has_remark && !is_value(spec, value) && is_value(spec, before) ? before : std::string_view();
}

std::string_view remark_after_value(std::string_view value) {
    if (value.empty()) {
        return value;
    }
    std::size_t mark = next_mark(value, 1);
    while (mark < value.size() && !core::text::is_space(value[mark - 1])) {
        mark = next_mark(value, mark + 1);
    }
    return value.substr(mark);
}

}  // namespace velk::input::amesp
