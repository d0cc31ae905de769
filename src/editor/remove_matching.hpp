// Removal from a list in two steps, so that a failure to compare leaves the list as it was.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace velk::input::amesp {

// Removes every record for which `matches` holds, in order; says whether there was one. When `matches` throws, nothing
// is removed.
template <class Record, class Matches>
bool remove_matching(std::vector<Record>& records, Matches matches) {
    static_assert(std::is_nothrow_move_assignable_v<Record>);
    std::vector<bool> doomed;
    doomed.reserve(records.size());
    for (const Record& record : records) {
        doomed.push_back(matches(record));
    }
    const auto begin = records.begin();
    auto kept = begin;
    for (auto record = begin; record != records.end(); ++record) {
        if (!doomed[static_cast<std::size_t>(record - begin)]) {
            if (kept != record) {
                *kept = std::move(*record);
            }
            ++kept;
        }
    }
    const bool removed = kept != records.end();
    records.erase(kept, records.end());
    return removed;
}

}  // namespace velk::input::amesp
