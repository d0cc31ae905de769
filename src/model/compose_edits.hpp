// Edits made one after the other, as edits of the first text.
#pragma once

#include <vector>

#include <velk/input/amesp/text_edit.hpp>

namespace velk::input::amesp {

// What making `first` and then, in the text that this gives, `second` does to the original. Both must be sorted and
// must not overlap, and so is the result. Time and memory are in proportion to the edits.
std::vector<TextEdit> compose(const std::vector<TextEdit>& first, const std::vector<TextEdit>& second);

}  // namespace velk::input::amesp
