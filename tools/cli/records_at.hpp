// The records that stand at a place of the text which a document was read from.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <tuple>
#include <velk/input/amesp/document.hpp>

namespace amesp_inp {

inline auto place_of(const std::optional<velk::input::amesp::SourceLocation>& location) {
    return location ? std::tuple(location->line, location->column) : std::tuple(std::uint64_t{0}, std::uint64_t{0});
}

// The record at a location, of a list in the order of places, as the parser makes it. Null if there is none.
template <class Records>
auto record_at(Records& records, const velk::input::amesp::SourceLocation& location) -> decltype(records.data()) {
    const auto found =
        std::lower_bound(records.begin(), records.end(), place_of(location),
                         [](const auto& record, const auto& place) { return place_of(record.location) < place; });
    return found != records.end() && found->location == location ? &*found : nullptr;
}

// The last section whose header stands above a location. Null if there is none.
template <class Sections>
auto section_around(Sections& sections, const velk::input::amesp::SourceLocation& location)
    -> decltype(sections.data()) {
    const auto after =
        std::upper_bound(sections.begin(), sections.end(), place_of(location),
                         [](const auto& place, const auto& section) { return place < place_of(section.location); });
    return after == sections.begin() ? nullptr : &*std::prev(after);
}

}  // namespace amesp_inp
