// Records made where a list keeps them.
#pragma once

#include <type_traits>

namespace velk::input::amesp {

// Given to emplace_back, makes the element in its place: what `make` returns is never moved. Moving a record costs as
// much as making it, since each of its short strings is copied.
template <class Make>
struct InPlace {
    Make make;

    operator std::invoke_result_t<Make>() const { return make(); }
};

template <class Make>
InPlace(Make) -> InPlace<Make>;

}  // namespace velk::input::amesp
