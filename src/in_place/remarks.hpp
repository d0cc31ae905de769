// Remarks after values, which this format does not know: to it they are part of the value.
#pragma once

#include <string_view>

#include "in_place/revision.hpp"

namespace velk::input::amesp::in_place {

// From the first word of a value on that would begin a comment if it began a line; empty when there is none.
std::string_view remark_of(std::string_view value);

// Says so when the old value of that record held a remark that the new one does not hold.
template <class Record>
void say_lost_remark(Revision& revision, const Record& before, std::string_view new_value) {
    const std::string_view remark = remark_of(before.value);
    if (new_value.find(remark) == std::string_view::npos) {
        revision.problems.dropped_words("The remark '" + std::string(remark) + "' was part of the value and goes",
                                        before.location);
    }
}

}  // namespace velk::input::amesp::in_place
