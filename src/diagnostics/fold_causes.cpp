// Finds what follows from what.
#include "diagnostics/fold_causes.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "diagnostics/subjects.hpp"

namespace velk::input::amesp {
namespace {

using Rank = std::size_t;  // of a detection: its place in the list; of another finding: after all of them

struct Cover {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    Rank rank = 0;
};

std::vector<Cover> covers_of(const Detections& detections) {
    std::vector<Cover> covers;
    for (Rank rank = 0; rank < detections.size(); ++rank) {
        for (const Extent& extent : detections[rank].covers) {
            covers.push_back({extent.offset, extent.offset + extent.length, rank});
        }
    }
    std::sort(covers.begin(), covers.end(), [](const Cover& a, const Cover& b) { return a.begin < b.begin; });
    return covers;
}

// One walk over all findings by place: of the covers that a place lies in, that of the first detection counts.
class Folder {
public:
    Folder(Detections detections, std::vector<Diagnostic> others) : covers_(covers_of(detections)) {
        for (const Detected& detected : detections) {
            for (const std::string_view code : detected.explains) {
                explained_.try_emplace(code, static_cast<Rank>(&detected - detections.data()));
            }
        }
        count_ = detections.size();
        all_.reserve(count_ + others.size());
        for (Detected& detected : detections) {
            all_.push_back(std::move(detected.diagnostic));
        }
        all_.insert(all_.end(), std::make_move_iterator(others.begin()), std::make_move_iterator(others.end()));
    }

    std::vector<Diagnostic> run() {
        std::vector<std::size_t> by_place(all_.size());
        for (std::size_t i = 0; i < by_place.size(); ++i) {
            by_place[i] = i;
        }
        std::stable_sort(by_place.begin(), by_place.end(), [this](std::size_t a, std::size_t b) {
            return all_[a].range->offset < all_[b].range->offset;
        });
        causes_.resize(all_.size());
        for (const std::size_t i : by_place) {
            causes_[i] = cause_of(i);
        }
        for (const std::size_t i : by_place) {
            if (causes_[i]) {
                fold(all_[i], all_[root_of(i)]);
            }
        }
        std::vector<Diagnostic> left;
        for (std::size_t i = 0; i < all_.size(); ++i) {
            if (!causes_[i]) {
                left.push_back(std::move(all_[i]));
            }
        }
        return left;
    }

private:
    std::optional<Rank> cause_of(std::size_t i) {
        const std::uint64_t offset = all_[i].range->offset;
        for (; next_ != covers_.size() && covers_[next_].begin <= offset; ++next_) {
            open_.insert({covers_[next_].rank, covers_[next_].end});
        }
        while (!open_.empty() && open_.begin()->second <= offset) {
            open_.erase(open_.begin());
        }
        const Rank rank = std::min(i, count_);
        const bool is_of_its_place = all_[i].subject.kind != subjects::document;
        if (is_of_its_place && !open_.empty() && open_.begin()->first < rank) {
            return unless_graver(i, open_.begin()->first);
        }
        const auto explained = explained_.find(all_[i].code);
        const bool is_explained = explained != explained_.end() && explained->second < rank;
        return is_explained ? unless_graver(i, explained->second) : std::nullopt;
    }

    // Findings count by their cause: an error does not go down in a warning.
    std::optional<Rank> unless_graver(std::size_t i, Rank cause) const {
        return all_[i].severity > all_[cause].severity ? std::nullopt : std::optional(cause);
    }

    // A cause comes before what follows from it, so this ends.
    std::size_t root_of(std::size_t i) const {
        while (causes_[i]) {
            i = *causes_[i];
        }
        return i;
    }

    static void fold(Diagnostic& diagnostic, Diagnostic& cause) {
        cause.causes.push_back({diagnostic.code, diagnostic.severity, std::move(diagnostic.message), diagnostic.range});
    }

    std::vector<Cover> covers_;
    std::map<std::string_view, Rank> explained_;
    std::size_t count_ = 0;  // of detections
    std::vector<Diagnostic> all_;
    std::vector<std::optional<Rank>> causes_;
    std::set<std::pair<Rank, std::uint64_t>> open_;  // covers that have begun, by detection
    std::size_t next_ = 0;
};

}  // namespace

std::vector<Diagnostic> fold_causes(Detections detections, std::vector<Diagnostic> others) {
    if (detections.empty()) {
        return others;
    }
    return Folder(std::move(detections), std::move(others)).run();
}

}  // namespace velk::input::amesp
