// Finds the records of an edited document again among those of the text, by their location.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include <velk/input/amesp/document.hpp>

#include "in_place/align.hpp"

namespace velk::input::amesp::in_place {

// For every record of `after` the one of `before`, read from the text, that stood at its location, `no_partner` for one
// without location. Nothing when a location, its length included, is none of `before`'s or the order is another.
template <class Record>
std::optional<std::vector<std::size_t>> partners(const std::vector<Record>& before, const std::vector<Record>& after) {
    std::vector<std::size_t> result;
    result.reserve(after.size());
    std::size_t next = 0;
    for (const Record& record : after) {
        if (!record.location) {
            result.push_back(no_partner);
            continue;
        }
        while (next < before.size() && before[next].location != record.location) {
            ++next;
        }
        if (next == before.size()) {
            return std::nullopt;
        }
        result.push_back(next++);
    }
    return result;
}

// Which of `count` old records nobody goes on with.
inline std::vector<bool> without_partner(std::size_t count, const std::vector<std::size_t>& partners_of_new) {
    std::vector<bool> result(count, true);
    for (const std::size_t partner : partners_of_new) {
        if (partner != no_partner) {
            result[partner] = false;
        }
    }
    return result;
}

// Of the first record at or after a place that has a partner: that partner. Places are asked for in ascending order,
// which makes all questions together one walk.
class NextPartner {
public:
    explicit NextPartner(const std::vector<std::size_t>& partners_of_new) : partners_(partners_of_new) {}

    std::size_t from(std::size_t place) {
        place_ = std::max(place_, place);
        while (place_ < partners_.size() && partners_[place_] == no_partner) {
            ++place_;
        }
        return place_ < partners_.size() ? partners_[place_] : no_partner;
    }

private:
    const std::vector<std::size_t>& partners_;
    std::size_t place_ = 0;
};

}  // namespace velk::input::amesp::in_place
